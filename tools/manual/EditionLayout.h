#pragma once

#include "tools/manual/ManualEdition.h"
#include "tools/manual/PageFlow.h"

#include <QMap>

/// An edition on pages that are numbered from `firstPage`.
struct EditionLayout
{
    ManualEdition edition;
    int firstPage = 1;
    QVector<ManualPage> pages;
    /// The numbers of the pages on which the places stand that links lead to, by their names in the file.
    QMap<QString, int> pageOfAnchor;
};

/// Lays an edition out. The contents and the references tell the pages on which things really stand.
EditionLayout layOutEdition(const ManualEdition &edition, const PageStyle &style, int firstPage);

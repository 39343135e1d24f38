#pragma once

#include "app/batch/BatchCommands.h"
#include "app/batch/StringSelection.h"

#include <QStringList>

/// What to plot and where to.
struct PlotOrder
{
    QString curveFile;
    /// A PDF or an image, as the suffix says.
    QString output;
    StringSelection strings;
    /// The views that are on, out of those of the graph; those of a fresh graph if none is named.
    QStringList views;
    /// An existing file may be overwritten.
    bool force = false;
};

/// The views that a text such as "STC,IV" names; nothing for a text that names others.
std::optional<QStringList> parseViews(const QString &text);

/// Writes the graph of strings of a curve file to a page of its own.
BatchExit plotCurves(const PlotOrder &order);

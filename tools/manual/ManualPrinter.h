#pragma once

#include "tools/manual/ManualEdition.h"

#include <QByteArray>

/// The manual as a PDF file: a title page for all editions, then one edition behind the other. `logo` is the
/// drawing on the title page.
QByteArray printManual(const QVector<ManualEdition> &editions, const QString &logo, const QString &version);

#pragma once

#include <QString>

class QWidget;

/// Asks for the PDF file to export to, starting in the folder of the last export, and remembers the
/// chosen folder. Empty when the user cancels.
QString askPdfTarget(QWidget *parent);
/// The same in words of the caller's own.
QString askPdfTarget(QWidget *parent, const QString &title, const QString &filter);

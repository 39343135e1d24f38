#include "app/core/PdfTarget.h"

#include <QCoreApplication>
#include <QFileDialog>
#include <QFileInfo>
#include <QSettings>

namespace {

/// The translation context of this dialog.
struct Text
{
    Q_DECLARE_TR_FUNCTIONS(PdfTarget)
};

} // namespace

QString askPdfTarget(QWidget *parent)
{
    return askPdfTarget(parent, Text::tr("Export PDF"), Text::tr("PDF Files (*.pdf)"));
}

QString askPdfTarget(QWidget *parent, const QString &title, const QString &filter)
{
    QSettings settings;
    const QString key = QStringLiteral("Directories/LastPdfExportDir");
    const QString path = QFileDialog::getSaveFileName(parent, title, settings.value(key).toString(), filter);
    if (path.isEmpty())
        return path;
    settings.setValue(key, QFileInfo(path).absolutePath());
    return path;
}

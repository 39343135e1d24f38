#include "curve/ui/ExportTarget.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QSettings>

namespace IVCurve {

QString askExportTarget(QWidget *parent, const QString &title, const QString &filter, const QString &name)
{
    QSettings settings;
    const QString key = QStringLiteral("Directories/LastExportDir");
    const QString folder =
        settings.value(key, settings.value(QStringLiteral("Directories/RootDir"))).toString();
    const QString proposal = QDir::toNativeSeparators(folder + QLatin1Char('/') + name);
    const QString path = QFileDialog::getSaveFileName(parent, title, proposal, filter);
    if (!path.isEmpty())
        settings.setValue(key, QFileInfo(path).absolutePath());
    return path;
}

} // namespace IVCurve

#include "curve/data/TesterCurveImporter.h"

#include "app/core/Messages.h"
#include "app/core/Shell.h"
#include "curve/data/CurveDatabase.h"
#include "curve/data/CurveGraphModel.h"
#include "curve/data/CurveTreeModel.h"
#include "curve/data/RollbackJournal.h"
#include "curve/data/TesterCurveFile.h"

#include <QFile>
#include <QFileInfo>
#include <QLocale>

namespace IVCurve {

namespace {

/// Lines before the first test.
constexpr int headingLines = 2;

} // namespace

TesterCurveImporter::TesterCurveImporter(const QString &filePath, CurveDatabase *database)
    : m_filePath(filePath), m_database(database)
{
}

bool TesterCurveImporter::run()
{
    QFile device(m_filePath);
    if (!device.open(QIODevice::ReadOnly)) {
        Message message;
        message.parent = Shell::parentWindow();
        message.icon = QMessageBox::Warning;
        message.text = tr("Error opening %1 for reading.", "Error Message").arg(m_filePath);
        showMessage(message);
        return false;
    }
    const TesterCurveFile file(device.readAll(), QLocale());
    device.close();

    CurveTreeModel *tree = m_database->treeModel();
    TreeItem *folder = tree->insertNewRow(QModelIndex());
    if (!folder)
        return false;
    folder->setData(TreeItem::NodeDesc, QFileInfo(m_filePath).fileName());
    const RollbackJournal journal(m_database->database());
    m_showErrors = true;
    // Each test goes in front of those before: the last line first gives the order of the file.
    for (int line = file.lines().size() - 1; line >= headingLines; --line) {
        if (!file.isBlank(line))
            importLine(file, line);
    }
    return false;
}

void TesterCurveImporter::importLine(const TesterCurveFile &file, int line)
{
    const bool checksumFailed = !file.isSpreadsheetTouched() && !file.checksumHolds(line);
    if (checksumFailed && m_showErrors)
        tellChecksum(line);
    CurveTreeModel *tree = m_database->treeModel();
    if (TreeItem *node = tree->insertNewRow(tree->index(0, 0)))
        fillNode(*node, file, line, checksumFailed);
}

void TesterCurveImporter::tellChecksum(int line)
{
    Message message;
    message.parent = Shell::parentWindow();
    message.text = tr("Checksum failed on line number %1").arg(line + 1);
    message.checkBoxText = tr("Continue showing errors during this import");
    message.checkBoxChecked = true;
    m_showErrors = showMessage(message).checked;
}

void TesterCurveImporter::fillNode(TreeItem &node, const TesterCurveFile &file, int line, bool checksumFailed)
{
    StringHeader header;
    CurveTrace measured(TraceKind::measured);
    file.readString(line, header, measured);
    // Before the dips are gone: they may be what made the irradiance vary.
    header.status = QString::number(file.statusWord(header, measured, checksumFailed));
    header.name = node.data.at(TreeItem::NodeDesc).toString();
    StringRecord record(header, CurveTrace());
    record.takeMeasured(measured);
    record.removeDips(header.fileVersion);
    const quint32 id = m_database->graphModel()->insertString(record);
    node.setData(TreeItem::CurveID, id);
    node.setData(TreeItem::NodeDesc, tr("String %1").arg(header.memLocation));
    node.setData(TreeItem::MemLocation, header.memLocation);
    node.setData(TreeItem::TestDate, header.testDate);
    node.setData(TreeItem::Status, header.status);
    node.setData(TreeItem::Irradiance, header.irradiance);
    node.setData(TreeItem::AmbientTemp, header.ambientTemp);
    node.setData(TreeItem::CellTemp, header.cellTemp);
    node.setData(TreeItem::FF, header.ff);
}

} // namespace IVCurve

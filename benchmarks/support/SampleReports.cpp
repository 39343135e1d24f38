#include "benchmarks/support/SampleReports.h"

#include "benchmarks/support/RandomNumbers.h"
#include "report/ReportScene.h"
#include "report/items/ReportTableCell.h"

#include <QFileInfo>
#include <QUndoStack>

namespace {

/// What people write into a field, cut to what fits.
const QString &prose()
{
    static const QString text = QStringLiteral(
        "Two strings of 24 modules on the southern roof, a third one of 22 modules on the barn. "
        "The earth conductor of the eastern frame was loose and has been tightened.");
    return text;
}

void fill(QGraphicsItem *item, RandomNumbers &numbers)
{
    auto *cell = qgraphicsitem_cast<ReportTableCell *>(item);
    if (cell && cell->isEditable())
        cell->setPlainText(QString::number(numbers.below(100000) / 100.0, 'f', 2));
    auto *text = qgraphicsitem_cast<ReportText *>(item);
    if (text && text->isEditable())
        text->setPlainText(prose().left(int(text->itemRect().width() * text->itemRect().height() / 300)));
}

/// A benchmark without its input would measure something else.
void insist(bool done, const char *what)
{
    if (!done)
        qFatal("cannot %s", what);
}

} // namespace

void writePristineReport(const QString &path)
{
    const QString pristine = QStringLiteral(":res/reports_en/default.") + QFileInfo(path).suffix();
    insist(QFile::copy(pristine, path), "copy the pristine report");
    insist(QFile::setPermissions(path, QFile::Permissions(0x6666)), "make the report writable");
}

void writeFilledReport(const QString &path)
{
    writePristineReport(path);
    QUndoStack undoStack;
    ReportScene scene(&undoStack);
    insist(scene.load(path), "load the pristine report");
    RandomNumbers numbers;
    const QList<QGraphicsItem *> items = scene.items(Qt::AscendingOrder);
    for (QGraphicsItem *item : items)
        fill(item, numbers);
    insist(scene.save(path), "save the filled report");
}

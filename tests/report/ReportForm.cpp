#include "tests/report/ReportForm.h"

#include "report/ReportScene.h"
#include "report/items/AbstractReportItem.h"
#include "report/items/ReportTable.h"
#include "report/items/ReportTableCell.h"
#include "res/Resources.h"
#include "tests/report/ReportSample.h"

#include <QGraphicsTextItem>

namespace {

const char form[] = R"(<document>
 <page id="page1" pageType="A4" pageNumber="1" editable="0" font="Arial" fontSize="9">
  <text x="40" y="40" width="200" height="30" fontWeight="75">CLIENT</text>
  <text id="client" x="40" y="80" width="300" height="30" editable="1"/>
  <checkBox id="done" x="60" y="130" width="200" height="25">All done</checkBox>
  <table id="grid" x="40" y="200" width="400" height="100" numCols="4" numRows="5" editable="1">
   <tableset col="0" size="100" editable="0"/>
   <cell col="0" row="1" id="Voc">Voc (V)</cell>
  </table>
  <text id="notes" x="40" y="900" width="300" height="60" editable="1">Template notes</text>
 </page>
 <page id="page2" pageType="A3" pageNumber="2">
  <text id="remarks" x="40" y="80" width="300" height="30" editable="1"/>
 </page>
</document>)";

void collect(const QList<QGraphicsItem *> &items, int type, QList<AbstractReportItem *> &found)
{
    for (QGraphicsItem *item : items) {
        if (item->type() == type)
            found.append(static_cast<AbstractReportItem *>(item));
        collect(item->childItems(), type, found);
    }
}

} // namespace

ReportForm::ReportForm() : m_resource(path(), ReportSample::pack(QByteArray(form)))
{
    initResources();
}

QByteArray ReportForm::xml(const QByteArray &elements)
{
    return "<document resPak=\"" + path().toUtf8() + "\">" + elements + "</document>";
}

QByteArray ReportForm::document(const QByteArray &elements)
{
    return ReportSample::pack(xml(elements));
}

QGraphicsTextItem *editorOf(const QGraphicsItem *item)
{
    const QList<QGraphicsItem *> children = item ? item->childItems() : QList<QGraphicsItem *>();
    for (QGraphicsItem *child : children) {
        if (auto *editor = dynamic_cast<QGraphicsTextItem *>(child))
            return editor;
    }
    return nullptr;
}

QString textOf(const ReportScene &scene, const char *id)
{
    const QGraphicsTextItem *editor = editorOf(scene.itemById(QLatin1String(id)));
    return editor ? editor->toPlainText() : QStringLiteral("no such field");
}

QList<AbstractReportItem *> itemsOfType(const ReportScene &scene, int type)
{
    QList<QGraphicsItem *> tops = scene.items(Qt::AscendingOrder);
    tops.erase(std::remove_if(tops.begin(), tops.end(),
                              [](const QGraphicsItem *item) { return item->parentItem(); }),
               tops.end());
    QList<AbstractReportItem *> found;
    collect(tops, type, found);
    return found;
}

QString cellText(const ReportScene &scene, const char *table, int column, int row)
{
    auto *item = dynamic_cast<ReportTable *>(scene.itemById(QLatin1String(table)));
    const QGraphicsTextItem *editor = item ? editorOf(item->cellAt(column, row)) : nullptr;
    return editor ? editor->toPlainText() : QStringLiteral("no such cell");
}

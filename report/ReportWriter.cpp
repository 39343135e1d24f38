#include "report/ReportWriter.h"

#include "report/file/ReportXml.h"
#include "report/items/AbstractReportItem.h"

#include <QDomDocument>
#include <QGraphicsScene>

using namespace ReportXml;

namespace {

constexpr int indentation = 2;

void writeItem(QGraphicsItem *graphicsItem, QDomElement &parent, ReportFileEntries &entries)
{
    if (!isReportItem(graphicsItem))
        return;
    auto *item = static_cast<AbstractReportItem *>(graphicsItem);
    if (item->elementName().isEmpty())
        return;
    QDomElement element = parent.ownerDocument().createElement(item->elementName());
    if (!item->writeXml(element, false, entries))
        return;
    parent.appendChild(element);
    const QList<QGraphicsItem *> children = item->childItems();
    for (QGraphicsItem *child : children)
        writeItem(child, element, entries);
}

} // namespace

ReportFileEntries writeReport(const QGraphicsScene &scene, const QString &resPak)
{
    ReportFileEntries entries{{QLatin1String(entryName), QByteArray()}};
    QDomDocument document;
    QDomElement root = document.createElement(QLatin1String(Tag::document));
    root.setAttribute(QLatin1String(Attribute::resPak), resPak);
    document.appendChild(root);
    const QList<QGraphicsItem *> items = scene.items(Qt::AscendingOrder);
    for (QGraphicsItem *item : items) {
        if (!item->parentItem())
            writeItem(item, root, entries);
    }
    entries.first().data = document.toByteArray(indentation);
    return entries;
}

#include "report/ReportReader.h"

#include "report/file/ReportXml.h"
#include "report/items/AbstractReportItem.h"
#include "report/items/ReportItemFactory.h"
#include "report/items/ReportItemHost.h"
#include "report/items/ReportTable.h"
#include "report/items/ReportTableCell.h"

#include <QDomElement>
#include <QGraphicsScene>

#include <memory>

using namespace ReportXml;

ReportReader::ReportReader(QGraphicsScene &scene, ReportItemHost &host, ReportIndex &index)
    : m_scene(scene), m_host(host), m_index(index)
{
}

void ReportReader::build(const QDomElement &root, const ReportFileEntries &entries)
{
    m_index.firstTabStop = nullptr;
    m_index.lastTabStop = nullptr;
    buildChildren(root, nullptr, entries);
}

void ReportReader::merge(const QDomElement &root, const ReportFileEntries &entries)
{
    mergeChildren(root, nullptr, entries);
}

void ReportReader::buildChildren(const QDomElement &parent, AbstractReportItem *parentItem,
                                 const ReportFileEntries &entries)
{
    for (QDomElement element = parent.firstChildElement(); !element.isNull();
         element = element.nextSiblingElement()) {
        AbstractReportItem *item = createReportItem(element.tagName(), parentItem);
        if (!item)
            continue;
        if (!parentItem)
            m_scene.addItem(item);
        if (!item->readXml(element, false, entries)) {
            delete item;
            continue;
        }
        enter(item);
        buildChildren(element, item, entries);
    }
}

void ReportReader::enter(AbstractReportItem *item)
{
    m_host.adopt(item);
    if (item->isTabStop()) {
        if (m_index.lastTabStop)
            m_index.lastTabStop->linkTabStop(item);
        else
            m_index.firstTabStop = item;
        m_index.lastTabStop = item;
    }
    if (!item->reportId().isEmpty())
        m_index.itemsById.insert(item->reportId(), item);
    if (item->type() == ReportTableType)
        enterCells(static_cast<const ReportTable *>(item));
}

void ReportReader::enterCells(const ReportTable *table)
{
    // All cells, not only those with an id of their own: what is typed into any of them can be undone.
    const QList<ReportTableCell *> all = table->cells();
    for (ReportTableCell *cell : all)
        m_host.adopt(cell);
    // Cells without an id share the empty one.
    const QMap<QString, ReportTableCell *> cells = table->cellsById();
    for (auto cell = cells.cbegin(); cell != cells.cend(); ++cell)
        m_index.itemsById.insert(cell.key(), cell.value());
}

void ReportReader::mergeChildren(const QDomElement &parent, AbstractReportItem *parentItem,
                                 const ReportFileEntries &entries)
{
    for (QDomElement element = parent.firstChildElement(); !element.isNull();
         element = element.nextSiblingElement()) {
        const QString id = element.attribute(QLatin1String(Attribute::id));
        if (id.isEmpty()) {
            if (element.tagName() == QLatin1String(Tag::image))
                mergeImage(element, parentItem, entries);
        } else if (AbstractReportItem *item = m_index.itemsById.value(id)) {
            item->readXml(element, true, entries);
            mergeChildren(element, item, entries);
        }
    }
}

void ReportReader::mergeImage(const QDomElement &element, AbstractReportItem *parentItem,
                              const ReportFileEntries &entries)
{
    // An image outside of every page would never be seen.
    if (!parentItem)
        return;
    std::unique_ptr<AbstractReportItem> image(createReportItem(element.tagName(), parentItem));
    // No entry for its number: there is no picture to show or to save.
    if (image->readXml(element, true, entries))
        m_host.adopt(image.release());
}

#pragma once

#include "report/file/ReportFile.h"

#include <QMap>
#include <QString>

class AbstractReportItem;
class QDomElement;
class QGraphicsScene;
class ReportItemHost;
class ReportTable;

/// What is noted while a report is built: its items by id, and the ends of the tab chain. Nothing is owned.
struct ReportIndex
{
    QMap<QString, AbstractReportItem *> itemsById;
    AbstractReportItem *firstTabStop = nullptr;
    AbstractReportItem *lastTabStop = nullptr;
};

/// Fills a scene with a report in two steps: the template builds every item, the document is then laid
/// over them. The two meet only at ids, grid positions and added images, so that a corrected template
/// changes the reports that were made from it.
class ReportReader
{
public:
    ReportReader(QGraphicsScene &scene, ReportItemHost &host, ReportIndex &index);

    /// Builds the items of a template, with the images in its entries.
    void build(const QDomElement &root, const ReportFileEntries &entries);
    /// Lays a document over the items, with the images in its entries.
    void merge(const QDomElement &root, const ReportFileEntries &entries);

private:
    void buildChildren(const QDomElement &parent, AbstractReportItem *parentItem,
                       const ReportFileEntries &entries);
    void enter(AbstractReportItem *item);
    void enterCells(const ReportTable *table);
    void mergeChildren(const QDomElement &parent, AbstractReportItem *parentItem,
                       const ReportFileEntries &entries);
    void mergeImage(const QDomElement &element, AbstractReportItem *parentItem,
                    const ReportFileEntries &entries);

    QGraphicsScene &m_scene;
    ReportItemHost &m_host;
    ReportIndex &m_index;
};

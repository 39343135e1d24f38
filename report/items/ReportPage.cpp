#include "report/items/ReportPage.h"

#include "app/core/XmlNumber.h"
#include "report/file/ReportXml.h"
#include "report/items/AddDeleteCommand.h"
#include "report/items/ReportItemHost.h"
#include "report/items/ReportResizableImage.h"

#include <QDomElement>
#include <QGraphicsRectItem>
#include <QGraphicsSceneContextMenuEvent>
#include <QMenu>
#include <QPen>

namespace Attribute = ReportXml::Attribute;

namespace {

constexpr QSizeF sheetA4(793.0, 1123.0);
constexpr QSizeF sheetA3(842.0, 1190.0);
constexpr double gapBetweenPages = 50.0;

} // namespace

ReportPage::ReportPage(QGraphicsItem *parent)
    : AbstractReportItem(parent), m_sheet(new QGraphicsRectItem(QRectF(QPointF(), sheetA4), this))
{
    setFlag(ItemHasNoContents);
    m_sheet->setPen(Qt::NoPen);
    m_sheet->setBrush(backgroundColour());
}

int ReportPage::type() const
{
    return Type;
}

const QString &ReportPage::elementName() const
{
    static const QString name = QLatin1String(ReportXml::Tag::page);
    return name;
}

bool ReportPage::writeXml(QDomElement &element, bool overlayOnly, ReportFileEntries &entries)
{
    if (overlayOnly && reportId().isEmpty())
        return false;
    if (!AbstractReportItem::writeXml(element, overlayOnly, entries))
        return false;
    if (!overlayOnly) {
        // Where a page stands follows from its number.
        element.removeAttribute(Attribute::x);
        element.removeAttribute(Attribute::y);
        // Always this one: the reader takes the size from the form alone.
        element.setAttribute(Attribute::pageType, "A4");
        element.setAttribute(Attribute::pageNumber, m_pageNumber);
    }
    return true;
}

bool ReportPage::readXml(const QDomElement &element, bool overlayOnly, const ReportFileEntries &entries)
{
    if (!AbstractReportItem::readXml(element, overlayOnly, entries))
        return false;
    if (!overlayOnly) {
        const bool isA3 = element.attribute(Attribute::pageType) == QLatin1String("A3");
        const QSizeF size = isA3 ? sheetA3 : sheetA4;
        m_pageNumber = qMax(1, intAttribute(element, Attribute::pageNumber, 1));
        prepareGeometryChange();
        m_sheet->setRect(QRectF(QPointF(), size));
        setPos(0.0, (m_pageNumber - 1) * (size.height() + gapBetweenPages));
    }
    m_sheet->setBrush(backgroundColour());
    return true;
}

QRectF ReportPage::boundingRect() const
{
    return m_sheet->boundingRect();
}

void ReportPage::paint(QPainter *, const QStyleOptionGraphicsItem *, QWidget *) {}

void ReportPage::contextMenuEvent(QGraphicsSceneContextMenuEvent *event)
{
    const QPointF scenePosition = event->scenePos();
    QMenu menu;
    const QAction *add = menu.addAction(tr("Add Image"));
    if (menu.exec(event->screenPos()) == add)
        addImage(scenePosition);
    event->accept();
}

void ReportPage::addImage(const QPointF &scenePosition)
{
    auto *image = new ReportResizableImage(this);
    ReportItemHost *scene = host();
    if (!scene || !image->choosePicture()) {
        delete image;
        return;
    }
    // The scene's coordinates are taken as the page's, so on a later page the image comes to stand lower.
    image->setPos(scenePosition);
    scene->adopt(image);
    emit image->newCommand(new AddDeleteCommand(image, true));
}

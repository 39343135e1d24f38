#include "report/items/ReportTableCell.h"

#include "app/core/XmlNumber.h"
#include "report/file/ReportXml.h"
#include "report/items/GraphicsTextItem.h"
#include "report/items/ReportTableGrid.h"
#include "report/items/ReportTableSet.h"

#include <QDomElement>
#include <QGraphicsSceneContextMenuEvent>
#include <QGraphicsSceneMouseEvent>
#include <QPainter>

namespace Attribute = ReportXml::Attribute;

ReportTableCell::ReportTableCell(ReportTableGrid *grid, QGraphicsItem *parent)
    : ReportText(parent), m_grid(grid)
{
    textItem()->setStandalone(false);
    connect(textItem(), &GraphicsTextItem::requestMove, this, &ReportTableCell::requestMove);
}

int ReportTableCell::type() const
{
    return Type;
}

const QString &ReportTableCell::elementName() const
{
    static const QString name = QLatin1String(ReportXml::Tag::cell);
    return name;
}

bool ReportTableCell::writeXml(QDomElement &element, bool overlayOnly, ReportFileEntries &entries)
{
    const bool isEmpty = plainText().isEmpty();
    if (overlayOnly ? isEmpty || !isEditable() : isEmpty && m_filler)
        return false;
    if (!overlayOnly) {
        if (m_colspan > 1)
            element.setAttribute(Attribute::colspan, m_colspan);
        if (m_rowspan > 1)
            element.setAttribute(Attribute::rowspan, m_rowspan);
    }
    element.setAttribute(Attribute::col, m_col);
    element.setAttribute(Attribute::row, m_row);
    if (!ReportText::writeXml(element, overlayOnly, entries))
        return false;
    // Where a cell stands and how wide it is follows from the table's sets.
    element.removeAttribute(Attribute::x);
    element.removeAttribute(Attribute::y);
    element.removeAttribute(Attribute::width);
    return true;
}

bool ReportTableCell::readXml(const QDomElement &element, bool overlayOnly, const ReportFileEntries &entries)
{
    if (overlayOnly)
        return ReportText::readXml(element, overlayOnly, entries);

    m_col = intAttribute(element, Attribute::col, 0);
    m_row = intAttribute(element, Attribute::row, 0);
    m_colspan =
        qBound(1, intAttribute(element, Attribute::colspan, 1), qMax(1, m_grid->columnCount() - m_col));
    m_rowspan = qBound(1, intAttribute(element, Attribute::rowspan, 1), qMax(1, m_grid->rowCount() - m_row));
    return readFromSets(element, entries);
}

void ReportTableCell::readFiller(int col, int row)
{
    m_col = col;
    m_row = row;
    m_filler = true;
    readFromSets(QDomElement(), {});
}

bool ReportTableCell::readFromSets(const QDomElement &element, const ReportFileEntries &entries)
{
    if (!ReportText::readXml(element, false, entries))
        return false;
    layOut();
    return true;
}

AbstractReportItem *ReportTableCell::parentReportItem() const
{
    ReportTableSet *rowSet = m_grid->rowSet(m_row);
    if (!rowSet->isImplicit())
        return rowSet;
    ReportTableSet *columnSet = m_grid->columnSet(m_col);
    return columnSet->isImplicit() ? AbstractReportItem::parentReportItem() : columnSet;
}

void ReportTableCell::startEditing(const QString &initial)
{
    if (!isEditable())
        return;
    m_grid->setCurrentCell(this);
    textItem()->startEditing(initial);
}

QRectF ReportTableCell::boundingRect() const
{
    return m_boundingRect;
}

void ReportTableCell::paint(QPainter *painter, const QStyleOptionGraphicsItem *, QWidget *)
{
    static const QPen line(Qt::black, 1.0, Qt::SolidLine, Qt::SquareCap, Qt::BevelJoin);
    static const QPen frame(Qt::black, 1.5, Qt::SolidLine, Qt::SquareCap, Qt::BevelJoin);
    painter->fillRect(m_drawnRect, backgroundColour());
    painter->setBrush(Qt::NoBrush);
    painter->setPen(line);
    painter->drawRect(m_drawnRect);
    if (hasFocus() || textItem()->hasFocus()) {
        painter->setPen(frame);
        painter->drawRect(m_drawnRect.adjusted(0.75, 0.75, -0.75, -0.75));
    }
}

void ReportTableCell::requestMove(int columns, int rows)
{
    m_grid->moveCurrentCell(this, columns, rows);
}

void ReportTableCell::updateBounds()
{
    // The grid alone says how large a cell is.
}

void ReportTableCell::contextMenuEvent(QGraphicsSceneContextMenuEvent *event)
{
    // A cell's font belongs to the grid.
    event->ignore();
}

void ReportTableCell::focusInEvent(QFocusEvent *event)
{
    // Editing starts when the user types, not when the keyboard comes by: the base's own step is left out.
    QGraphicsObject::focusInEvent(event); // NOLINT(bugprone-parent-virtual-call)
    m_grid->setCurrentCell(this);
    update();
}

void ReportTableCell::focusOutEvent(QFocusEvent *event)
{
    QGraphicsObject::focusOutEvent(event);
    update();
}

void ReportTableCell::mousePressEvent(QGraphicsSceneMouseEvent *event)
{
    if (isEditable() && event->button() == Qt::LeftButton)
        startEditing(QString());
    else
        event->ignore();
}

void ReportTableCell::layOut()
{
    const double left = m_grid->columnSet(m_col)->position();
    const double top = m_grid->rowSet(m_row)->position();
    const double width = m_grid->columnSet(m_col + m_colspan)->position() - left;
    const double height = m_grid->rowSet(m_row + m_rowspan)->position() - top;

    prepareGeometryChange();
    setPos(left, top);
    m_drawnRect = QRectF(0.0, 0.0, width, height);
    m_boundingRect = QRectF(-0.5, -0.5, width + 1.5, height + 1.5);
    textItem()->setBox(QSizeF(width, height));
    textItem()->setEditor(false);
}

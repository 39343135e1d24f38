#include "report/items/ReportTable.h"

#include "app/core/XmlNumber.h"
#include "report/file/ReportXml.h"
#include "report/items/GraphicsTextItem.h"
#include "report/items/ReportTableCell.h"
#include "report/items/ReportTableSet.h"
#include "report/items/TableLayout.h"

#include <QDomElement>
#include <QGraphicsScene>
#include <QGraphicsSceneMouseEvent>
#include <QKeyEvent>
#include <QPainter>

namespace Attribute = ReportXml::Attribute;

namespace {

struct Move
{
    int key;
    int columns;
    int rows;
};

constexpr Move moves[] = {
    {Qt::Key_Left, -1, 0}, {Qt::Key_Right, 1, 0},    {Qt::Key_Up, 0, -1},
    {Qt::Key_Down, 0, 1},  {Qt::Key_PageUp, 0, -10}, {Qt::Key_PageDown, 0, 10},
};

/// True for a key that types text, false for commands that carry a character too.
bool isTyping(const QKeyEvent &event)
{
    const QString text = event.text();
    const bool isCommand = (event.modifiers() & ~Qt::ShiftModifier) == Qt::ControlModifier;
    return !isCommand && !text.isEmpty() && text.at(0).isPrint();
}

} // namespace

ReportTable::ReportTable(QGraphicsItem *parent) : AbstractReportItem(parent)
{
    setFlag(ItemIsFocusable);
}

ReportTable *ReportTable::of(const ReportTableCell *cell)
{
    return static_cast<ReportTable *>(cell->parentItem());
}

int ReportTable::type() const
{
    return Type;
}

const QString &ReportTable::elementName() const
{
    static const QString name = QLatin1String(ReportXml::Tag::table);
    return name;
}

bool ReportTable::writeXml(QDomElement &element, bool overlayOnly, ReportFileEntries &entries)
{
    if (overlayOnly && reportId().isEmpty())
        return false;
    if (!AbstractReportItem::writeXml(element, overlayOnly, entries))
        return false;
    if (!overlayOnly) {
        setDoubleAttribute(element, Attribute::width, m_drawnRect.width());
        setDoubleAttribute(element, Attribute::height, m_drawnRect.height());
        element.setAttribute(Attribute::numCols, columnCount());
        element.setAttribute(Attribute::numRows, rowCount());
    }
    return true;
}

bool ReportTable::readXml(const QDomElement &element, bool overlayOnly, const ReportFileEntries &entries)
{
    if (!AbstractReportItem::readXml(element, overlayOnly, entries))
        return false;
    if (overlayOnly) {
        overlayCells(element, entries);
        return true;
    }
    const double width = doubleAttribute(element, Attribute::width, 0.0);
    const double height = doubleAttribute(element, Attribute::height, 0.0);
    const int columns = intAttribute(element, Attribute::numCols, 0);
    const int rows = intAttribute(element, Attribute::numRows, 0);
    const bool acceptable = TableLayout::isAcceptableGrid(columns, rows);
    m_columnSets.fill(nullptr, acceptable ? columns : 0);
    m_rowSets.fill(nullptr, acceptable ? rows : 0);

    readSets(element);
    completeSets(m_columnSets, &ReportTableSet::setCol, width);
    completeSets(m_rowSets, &ReportTableSet::setRow, height);
    m_endColumnSet = new ReportTableSet(this);
    m_endColumnSet->setCol(columnCount());
    m_endColumnSet->setPosition(width);
    m_endRowSet = new ReportTableSet(this);
    m_endRowSet->setRow(rowCount());
    m_endRowSet->setPosition(height);
    readCells(element, entries);

    prepareGeometryChange();
    m_boundingRect = QRectF(-0.5, -0.5, width + 1.0, height + 1.0);
    m_drawnRect = QRectF(0.0, 0.0, width, height);
    return true;
}

ReportTableCell *ReportTable::cellAt(int col, int row) const
{
    if (col < 0 || row < 0 || col >= columnCount() || row >= rowCount())
        return nullptr;
    return m_cells.value(keyOf(col, row));
}

QMap<QString, ReportTableCell *> ReportTable::cellsById() const
{
    QMap<QString, ReportTableCell *> result;
    for (ReportTableCell *cell : m_cells)
        result.insert(cell->reportId(), cell);
    return result;
}

int ReportTable::firstEmptyColumn(const QList<int> &rows) const
{
    QVector<TableLayout::Entry> entries;
    entries.reserve(m_cells.size());
    for (const ReportTableCell *cell : m_cells) {
        if (rows.contains(cell->row()))
            entries.append({cell->col(), cell->row(), cell->plainText().isEmpty()});
    }
    return TableLayout::firstEmptyColumn(entries, rows.toVector(), columnCount());
}

ReportTableSet *ReportTable::columnSet(int col) const
{
    return col < columnCount() ? m_columnSets.at(col) : m_endColumnSet;
}

ReportTableSet *ReportTable::rowSet(int row) const
{
    return row < rowCount() ? m_rowSets.at(row) : m_endRowSet;
}

void ReportTable::setCurrentCell(ReportTableCell *cell)
{
    m_currentCell = cell;
}

void ReportTable::moveCurrentCell(ReportTableCell *cell, int columns, int rows)
{
    m_currentCell = cell;
    if (cell && focusCell(cell->col() + columns, cell->row() + rows))
        m_currentCell->startEditing(QString());
}

QRectF ReportTable::boundingRect() const
{
    return m_boundingRect;
}

void ReportTable::paint(QPainter *painter, const QStyleOptionGraphicsItem *, QWidget *)
{
    static const QPen line(Qt::black, 1.0, Qt::SolidLine, Qt::SquareCap, Qt::BevelJoin);
    painter->setBrush(Qt::NoBrush);
    painter->setPen(line);
    painter->drawRect(m_drawnRect);
}

void ReportTable::keyPressEvent(QKeyEvent *event)
{
    // Keys that the cell's editor has no use for come here as well.
    if (!m_currentCell || m_currentCell->textItem()->hasFocus()) {
        event->ignore();
        return;
    }
    const int col = m_currentCell->col();
    const int row = m_currentCell->row();
    for (const Move &move : moves) {
        if (move.key == event->key()) {
            focusCell(col + move.columns, row + move.rows);
            return;
        }
    }
    if (event->key() == Qt::Key_Home)
        focusCell(0, row);
    else if (event->key() == Qt::Key_End)
        focusCell(columnCount() - 1, row);
    else if (isTyping(*event))
        m_currentCell->startEditing(event->text());
    else
        event->ignore();
}

void ReportTable::mousePressEvent(QGraphicsSceneMouseEvent *event)
{
    if (event->button() == Qt::LeftButton)
        focusCellUnder(event->scenePos());
    else
        event->ignore();
}

void ReportTable::mouseDoubleClickEvent(QGraphicsSceneMouseEvent *event)
{
    if (event->button() != Qt::LeftButton)
        event->ignore();
    else if (focusCellUnder(event->scenePos()))
        m_currentCell->startEditing(QString());
}

quint32 ReportTable::keyOf(int col, int row)
{
    return quint32(col) + (quint32(row) << 16);
}

void ReportTable::readSets(const QDomElement &element)
{
    const QString tag = QLatin1String(ReportXml::Tag::tableset);
    for (QDomElement child = element.firstChildElement(tag); !child.isNull();
         child = child.nextSiblingElement(tag)) {
        auto *set = new ReportTableSet(this);
        set->readXml(child, false, {});
        ReportTableSet **place = nullptr;
        if (set->col() >= 0 && set->col() < columnCount())
            place = &m_columnSets[set->col()];
        else if (set->col() < 0 && set->row() >= 0 && set->row() < rowCount())
            place = &m_rowSets[set->row()];
        if (!place) {
            delete set;
            continue;
        }
        delete *place;
        *place = set;
    }
}

void ReportTable::completeSets(QVector<ReportTableSet *> &sets, void (ReportTableSet::*setIndex)(int),
                               double extent)
{
    QVector<std::optional<double>> described;
    described.reserve(sets.size());
    for (const ReportTableSet *set : qAsConst(sets))
        described.append(set ? std::optional<double>(set->size()) : std::nullopt);

    const QVector<TableLayout::Track> tracks = TableLayout::tracks(described, extent);
    for (int i = 0; i < sets.size(); ++i) {
        if (!sets.at(i)) {
            sets[i] = new ReportTableSet(this);
            (sets.at(i)->*setIndex)(i);
        }
        sets.at(i)->setSize(tracks.at(i).size);
        sets.at(i)->setPosition(tracks.at(i).position);
    }
}

void ReportTable::readCells(const QDomElement &element, const ReportFileEntries &entries)
{
    QVector<bool> taken(columnCount() * rowCount(), false);
    const QString tag = QLatin1String(ReportXml::Tag::cell);
    // No more than there is room for, however many are described.
    int room = taken.size();
    for (QDomElement child = element.firstChildElement(tag); !child.isNull() && room > 0;
         child = child.nextSiblingElement(tag), --room) {
        const int col = intAttribute(child, Attribute::col, 0);
        const int row = intAttribute(child, Attribute::row, 0);
        if (col < 0 || row < 0 || col >= columnCount() || row >= rowCount())
            continue;
        auto *cell = new ReportTableCell(this, this);
        cell->readXml(child, false, entries);
        addCell(cell);
        for (int r = row; r < row + cell->rowspan(); ++r) {
            const auto begin = taken.begin() + (qptrdiff(r) * columnCount() + col);
            std::fill(begin, begin + cell->colspan(), true);
        }
    }
    for (int col = 0; col < columnCount(); ++col) {
        for (int row = 0; row < rowCount(); ++row) {
            if (taken.at(row * columnCount() + col))
                continue;
            auto *cell = new ReportTableCell(this, this);
            cell->readFiller(col, row);
            addCell(cell);
        }
    }
}

void ReportTable::addCell(ReportTableCell *cell)
{
    ReportTableCell *&place = m_cells[keyOf(cell->col(), cell->row())];
    delete place;
    place = cell;
    connect(cell, &AbstractReportItem::modified, this, &AbstractReportItem::modified);
}

void ReportTable::overlayCells(const QDomElement &element, const ReportFileEntries &entries)
{
    const QString tag = QLatin1String(ReportXml::Tag::cell);
    for (QDomElement child = element.firstChildElement(tag); !child.isNull();
         child = child.nextSiblingElement(tag)) {
        ReportTableCell *cell =
            cellAt(intAttribute(child, Attribute::col, 0), intAttribute(child, Attribute::row, 0));
        if (cell)
            cell->readXml(child, true, entries);
    }
}

bool ReportTable::focusCell(int col, int row)
{
    ReportTableCell *cell = cellAt(col, row);
    if (!cell)
        return false;
    m_currentCell = cell;
    cell->setFocus(Qt::OtherFocusReason);
    return true;
}

bool ReportTable::focusCellUnder(const QPointF &scenePosition)
{
    const QList<QGraphicsItem *> items = scene()->items(scenePosition);
    for (QGraphicsItem *item : items) {
        if (item->type() == ReportTableCellType && item->parentItem() == this) {
            m_currentCell = static_cast<ReportTableCell *>(item);
            m_currentCell->setFocus(Qt::OtherFocusReason);
            return true;
        }
    }
    return false;
}

#include "report/items/AbstractReportItem.h"

#include "app/core/XmlNumber.h"
#include "report/file/ReportXml.h"
#include "report/items/ReportItemHost.h"

#include <QDomElement>
#include <QMetaMethod>
#include <QUndoCommand>

namespace Attribute = ReportXml::Attribute;

namespace {

enum StyleBit : quint8
{
    EditableBit = 1,
    ColourBit = 2,
    BackgroundColourBit = 4,
    FontBit = 8,
    FontSizeBit = 16,
    FontWeightBit = 32,
    PaddingBit = 64
};

bool has(const QDomElement &element, const char *attribute)
{
    return element.hasAttribute(QLatin1String(attribute));
}

/// The colour in an attribute; invalid when it is missing or names none.
QColor colourIn(const QDomElement &element, const char *attribute)
{
    const QString name = element.attribute(QLatin1String(attribute));
    return QColor::isValidColor(name) ? QColor(name) : QColor();
}

} // namespace

AbstractReportItem::AbstractReportItem(QGraphicsItem *parent) : QGraphicsObject(parent) {}

bool AbstractReportItem::isTabStop() const
{
    return false;
}

const QString &AbstractReportItem::reportId() const
{
    return m_id;
}

bool AbstractReportItem::writeXml(QDomElement &element, bool overlayOnly, ReportFileEntries &)
{
    if (!overlayOnly) {
        setDoubleAttribute(element, Attribute::x, x());
        setDoubleAttribute(element, Attribute::y, y());
        writeStyle(element);
    }
    if (!m_id.isEmpty())
        element.setAttribute(Attribute::id, m_id);
    return true;
}

bool AbstractReportItem::readXml(const QDomElement &element, bool overlayOnly, const ReportFileEntries &)
{
    if (!overlayOnly) {
        setPos(doubleAttribute(element, Attribute::x, 0.0), doubleAttribute(element, Attribute::y, 0.0));
        if (const AbstractReportItem *parent = parentReportItem())
            inheritStyle(*parent);
        readStyle(element);
    }
    m_id = element.attribute(Attribute::id);
    return true;
}

AbstractReportItem *AbstractReportItem::parentReportItem() const
{
    QGraphicsItem *parent = parentItem();
    return isReportItem(parent) ? static_cast<AbstractReportItem *>(parent) : nullptr;
}

void AbstractReportItem::linkTabStop(AbstractReportItem *next)
{
    m_next = next;
    if (next)
        next->m_previous = this;
}

ReportItemHost *AbstractReportItem::host() const
{
    return ReportItemHost::of(this);
}

void AbstractReportItem::offerCommand(QUndoCommand *command)
{
    if (isSignalConnected(QMetaMethod::fromSignal(&AbstractReportItem::newCommand)))
        emit newCommand(command);
    else
        delete command;
}

void AbstractReportItem::writeStyle(QDomElement &element) const
{
    if (m_setMask & EditableBit)
        element.setAttribute(Attribute::editable, m_editable ? "1" : "0");
    if (m_setMask & ColourBit)
        element.setAttribute(Attribute::colour, m_colour.name());
    if (m_setMask & BackgroundColourBit)
        element.setAttribute(Attribute::backgroundColour, m_backgroundColour.name());
    if (m_setMask & FontBit)
        element.setAttribute(Attribute::font, m_font);
    if (m_setMask & FontSizeBit)
        setDoubleAttribute(element, Attribute::fontSize, m_fontSize);
    if (m_setMask & FontWeightBit)
        element.setAttribute(Attribute::fontWeight, m_fontWeight);
    if (m_setMask & PaddingBit)
        setDoubleAttribute(element, Attribute::padding, m_padding);
}

void AbstractReportItem::inheritStyle(const AbstractReportItem &parent)
{
    m_editable = parent.m_editable;
    m_colour = parent.m_colour;
    m_backgroundColour = parent.m_backgroundColour;
    m_font = parent.m_font;
    m_fontSize = parent.m_fontSize;
    m_fontWeight = parent.m_fontWeight;
    m_padding = parent.m_padding;
}

void AbstractReportItem::readStyle(const QDomElement &element)
{
    if (has(element, Attribute::editable)) {
        m_setMask |= EditableBit;
        m_editable = element.attribute(Attribute::editable) == QLatin1String("1");
    }
    if (const QColor colour = colourIn(element, Attribute::colour); colour.isValid()) {
        m_setMask |= ColourBit;
        m_colour = colour;
    }
    if (const QColor colour = colourIn(element, Attribute::backgroundColour); colour.isValid()) {
        m_setMask |= BackgroundColourBit;
        m_backgroundColour = colour;
    }
    if (has(element, Attribute::font)) {
        m_setMask |= FontBit;
        m_font = element.attribute(Attribute::font);
    }
    if (has(element, Attribute::fontSize)) {
        m_setMask |= FontSizeBit;
        m_fontSize = doubleAttribute(element, Attribute::fontSize, m_fontSize);
    }
    if (has(element, Attribute::fontWeight)) {
        m_setMask |= FontWeightBit;
        m_fontWeight = int(doubleAttribute(element, Attribute::fontWeight, m_fontWeight));
    }
    if (has(element, Attribute::padding)) {
        m_setMask |= PaddingBit;
        m_padding = doubleAttribute(element, Attribute::padding, m_padding);
    }
}

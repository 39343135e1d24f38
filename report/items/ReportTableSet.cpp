#include "report/items/ReportTableSet.h"

#include "app/core/XmlNumber.h"
#include "report/file/ReportXml.h"

#include <QDomElement>

namespace Attribute = ReportXml::Attribute;

ReportTableSet::ReportTableSet(QGraphicsItem *parent) : AbstractReportItem(parent)
{
    setFlag(ItemHasNoContents);
    setVisible(false);
}

int ReportTableSet::type() const
{
    return Type;
}

const QString &ReportTableSet::elementName() const
{
    static const QString name = QLatin1String(ReportXml::Tag::tableset);
    return name;
}

bool ReportTableSet::writeXml(QDomElement &element, bool overlayOnly, ReportFileEntries &entries)
{
    if (m_implicit || (overlayOnly && reportId().isEmpty()))
        return false;
    if (!AbstractReportItem::writeXml(element, overlayOnly, entries))
        return false;
    if (!overlayOnly) {
        if (m_col >= 0)
            element.setAttribute(Attribute::col, m_col);
        if (m_row >= 0)
            element.setAttribute(Attribute::row, m_row);
        if (m_size > 0.0)
            setDoubleAttribute(element, Attribute::size, m_size);
    }
    return true;
}

bool ReportTableSet::readXml(const QDomElement &element, bool overlayOnly, const ReportFileEntries &entries)
{
    if (!AbstractReportItem::readXml(element, overlayOnly, entries))
        return false;
    if (!overlayOnly) {
        m_col = intAttribute(element, Attribute::col, -1);
        m_row = intAttribute(element, Attribute::row, -1);
        m_size = doubleAttribute(element, Attribute::size, 0.0);
        m_implicit = false;
    }
    return true;
}

QRectF ReportTableSet::boundingRect() const
{
    return {};
}

void ReportTableSet::paint(QPainter *, const QStyleOptionGraphicsItem *, QWidget *) {}

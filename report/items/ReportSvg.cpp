#include "report/items/ReportSvg.h"

#include "app/core/XmlNumber.h"
#include "report/file/ReportXml.h"

#include <QDomElement>
#include <QGraphicsSvgItem>

namespace Attribute = ReportXml::Attribute;

namespace {

constexpr int pageDpi = 96;

} // namespace

ReportSvg::ReportSvg(QGraphicsItem *parent) : AbstractReportItem(parent)
{
    setFlag(ItemHasNoContents);
}

int ReportSvg::type() const
{
    return Type;
}

const QString &ReportSvg::elementName() const
{
    static const QString name = QLatin1String(ReportXml::Tag::svg);
    return name;
}

bool ReportSvg::writeXml(QDomElement &element, bool overlayOnly, ReportFileEntries &entries)
{
    if (overlayOnly && reportId().isEmpty())
        return false;
    if (!AbstractReportItem::writeXml(element, overlayOnly, entries))
        return false;
    element.setAttribute(Attribute::file, m_file);
    element.setAttribute(Attribute::dpi, m_dpi);
    return true;
}

bool ReportSvg::readXml(const QDomElement &element, bool overlayOnly, const ReportFileEntries &entries)
{
    if (!AbstractReportItem::readXml(element, overlayOnly, entries))
        return false;
    const QString file = element.attribute(Attribute::file);
    // A form may name what it likes; a user's document comes from anywhere and reaches for no files.
    if (overlayOnly && !file.startsWith(QLatin1Char(':')))
        return true;
    m_dpi = intAttribute(element, Attribute::dpi, pageDpi);
    m_file = file;
    showFile();
    return true;
}

QRectF ReportSvg::boundingRect() const
{
    return m_boundingRect;
}

void ReportSvg::paint(QPainter *, const QStyleOptionGraphicsItem *, QWidget *) {}

void ReportSvg::showFile()
{
    prepareGeometryChange();
    delete m_svgItem;
    m_svgItem = new QGraphicsSvgItem(m_file, this);
    m_svgItem->setCacheMode(NoCache);
    m_boundingRect = m_svgItem->boundingRect();
    setScale(m_dpi > 0 ? double(pageDpi) / m_dpi : 1.0);
}

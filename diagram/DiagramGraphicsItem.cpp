#include "diagram/DiagramGraphicsItem.h"

#include "diagram/DiagramItemType.h"
#include "diagram/DiagramXml.h"

#include <QDomElement>

DiagramGraphicsItem::DiagramGraphicsItem(const QString &id) : m_id(id) {}

int DiagramGraphicsItem::type() const
{
    return DiagramGraphicsItemType;
}

QString DiagramGraphicsItem::elementName() const
{
    return QString();
}

void DiagramGraphicsItem::writeXml(QDomElement &element) const
{
    element.setAttribute(QLatin1String(DiagramXml::Attribute::id), m_id);
}

void DiagramGraphicsItem::readXml(const QDomElement &element)
{
    m_id = element.attribute(QLatin1String(DiagramXml::Attribute::id));
}

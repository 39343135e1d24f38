#include "tools/resources/OverlayForm.h"

#include "report/file/ReportXml.h"

namespace {

using namespace ReportXml;

bool isTag(const QDomElement &element, const char *tag)
{
    return element.tagName() == QLatin1String(tag);
}

bool has(const QDomElement &element, const char *attribute)
{
    return element.hasAttribute(QLatin1String(attribute));
}

QString valueOf(const QDomElement &element, const char *attribute)
{
    return element.attribute(QLatin1String(attribute));
}

void copy(const QDomElement &from, QDomElement &to, const char *attribute)
{
    if (has(from, attribute))
        to.setAttribute(QLatin1String(attribute), valueOf(from, attribute));
}

/// The element that describes the row or column of a cell.
QDomElement setOf(const QDomElement &cell, const char *direction)
{
    const QDomElement table = cell.parentNode().toElement();
    for (QDomElement set = table.firstChildElement(QLatin1String(Tag::tableset)); !set.isNull();
         set = set.nextSiblingElement(QLatin1String(Tag::tableset))) {
        if (has(set, direction) && valueOf(set, direction) == valueOf(cell, direction))
            return set;
    }
    return QDomElement();
}

/// Where an item without a value of its own takes it from: a cell from its row, else its column, else the
/// table, everything else from what it lies in.
QDomElement styleParent(const QDomElement &element)
{
    if (isTag(element, Tag::cell)) {
        for (const char *direction : {Attribute::row, Attribute::col}) {
            const QDomElement set = setOf(element, direction);
            if (!set.isNull())
                return set;
        }
    }
    return element.parentNode().toElement();
}

bool isEditable(const QDomElement &element)
{
    if (element.isNull())
        return false;
    if (has(element, Attribute::editable))
        return valueOf(element, Attribute::editable) == QLatin1String("1");
    return isEditable(styleParent(element));
}

void copyText(const QDomElement &from, QDomElement &to)
{
    if (isEditable(from) && !from.text().isEmpty())
        to.appendChild(to.ownerDocument().createTextNode(from.text()));
}

/// The element without what contains it, null if a user could not have changed it.
QDomElement overlaid(const QDomElement &element, QDomDocument &overlay)
{
    if (isTag(element, Tag::image))
        return overlay.importNode(element, true).toElement();

    QDomElement result = overlay.createElement(element.tagName());
    if (isTag(element, Tag::cell)) {
        if (!isEditable(element) || element.text().isEmpty())
            return QDomElement();
        for (const char *attribute : {Attribute::col, Attribute::row, Attribute::id})
            copy(element, result, attribute);
        copyText(element, result);
        return result;
    }
    if (!has(element, Attribute::id))
        return QDomElement();
    copy(element, result, Attribute::id);
    if (isTag(element, Tag::checkBox))
        result.setAttribute(QLatin1String(Attribute::checked), QStringLiteral("false"));
    if (isTag(element, Tag::checkBox) || isTag(element, Tag::text))
        copyText(element, result);
    return result;
}

void layOver(const QDomElement &from, QDomElement &to, QDomDocument &overlay)
{
    for (QDomElement child = from.firstChildElement(); !child.isNull(); child = child.nextSiblingElement()) {
        QDomElement result = overlaid(child, overlay);
        if (result.isNull())
            continue;
        to.appendChild(result);
        layOver(child, result, overlay);
    }
}

} // namespace

QDomDocument overlayOf(const QDomDocument &form)
{
    QDomDocument overlay;
    QDomElement root = overlay.createElement(QLatin1String(Tag::document));
    overlay.appendChild(root);
    layOver(form.documentElement(), root, overlay);
    return overlay;
}

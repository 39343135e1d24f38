#include "report/items/ReportCheckBox.h"

#include "app/core/Language.h"
#include "app/core/XmlNumber.h"
#include "report/file/ReportXml.h"
#include "report/items/GraphicsTextItem.h"

#include <QDomElement>
#include <QGraphicsSceneMouseEvent>
#include <QGraphicsSvgItem>
#include <QKeyEvent>
#include <QPainter>
#include <QSvgRenderer>

namespace Attribute = ReportXml::Attribute;

namespace {

/// The symbol's picture. All check boxes that live at a time share it.
std::shared_ptr<QSvgRenderer> symbolRenderer()
{
    static std::weak_ptr<QSvgRenderer> shared;
    static QString sharedPath;
    const QString path = reportsResource(QStringLiteral("images/checkBox.svg"));
    std::shared_ptr<QSvgRenderer> renderer = shared.lock();
    if (!renderer || sharedPath != path) {
        renderer = std::make_shared<QSvgRenderer>(path);
        shared = renderer;
        sharedPath = path;
    }
    return renderer;
}

QRectF grown(const QRectF &rect, double by)
{
    return rect.adjusted(-by, -by, by, by);
}

} // namespace

ReportCheckBox::ReportCheckBox(QGraphicsItem *parent)
    : ReportText(parent), m_renderer(symbolRenderer()), m_symbol(new QGraphicsSvgItem(this))
{
    m_symbol->setSharedRenderer(m_renderer.get());
    m_symbol->setElementId(QStringLiteral("unchecked"));
    m_symbol->setCacheMode(NoCache);
    m_symbol->setPos(-15.0, 2.0);
    ReportCheckBox::updateBounds();
}

ReportCheckBox::~ReportCheckBox() = default;

int ReportCheckBox::type() const
{
    return Type;
}

bool ReportCheckBox::isTabStop() const
{
    return true;
}

const QString &ReportCheckBox::elementName() const
{
    static const QString name = QLatin1String(ReportXml::Tag::checkBox);
    return name;
}

bool ReportCheckBox::writeXml(QDomElement &element, bool overlayOnly, ReportFileEntries &entries)
{
    if (overlayOnly && reportId().isEmpty())
        return false;
    if (!ReportText::writeXml(element, overlayOnly, entries))
        return false;
    if (!overlayOnly) {
        if (m_symbol->scale() != 1.0)
            setDoubleAttribute(element, Attribute::boxScale, m_symbol->scale());
        setDoubleAttribute(element, Attribute::boxPosX, m_symbol->x());
        setDoubleAttribute(element, Attribute::boxPosY, m_symbol->y());
    }
    element.setAttribute(Attribute::checked, m_checked ? "true" : "false");
    return true;
}

bool ReportCheckBox::readXml(const QDomElement &element, bool overlayOnly, const ReportFileEntries &entries)
{
    if (!overlayOnly) {
        if (!ReportText::readXml(element, overlayOnly, entries))
            return false;
        m_symbol->setScale(doubleAttribute(element, Attribute::boxScale, 1.0));
        m_symbol->setPos(doubleAttribute(element, Attribute::boxPosX, m_symbol->x()),
                         doubleAttribute(element, Attribute::boxPosY, m_symbol->y()));
        updateBounds();
    }
    setChecked(element.attribute(Attribute::checked) == QLatin1String("true"), false);
    return true;
}

void ReportCheckBox::setItemSize(const QSizeF &size, int handle)
{
    ReportText::setItemSize(size, handle);
    updateBounds();
}

void ReportCheckBox::setChecked(bool value, bool recordUndo)
{
    m_checked = value;
    if (recordUndo) {
        offerCommand(new ReportCheckBoxCommand(this, value));
        return;
    }
    m_symbol->setElementId(value ? QStringLiteral("checked") : QStringLiteral("unchecked"));
    emit modified(true);
}

QRectF ReportCheckBox::boundingRect() const
{
    return m_boundingRect;
}

void ReportCheckBox::paint(QPainter *painter, const QStyleOptionGraphicsItem *, QWidget *)
{
    if (!m_hasFrame)
        return;
    static const QPen white(Qt::white, 1.0, Qt::SolidLine, Qt::SquareCap, Qt::BevelJoin);
    static const QPen black(Qt::black, 1.0, Qt::DashLine, Qt::SquareCap, Qt::BevelJoin);
    const double unit = 1.0 / horizontalScale();
    QPen dashes = black;
    if (unit != 1.0)
        dashes.setWidthF(unit);

    painter->setBrush(Qt::NoBrush);
    painter->setPen(white);
    painter->drawRect(m_frameRect);
    painter->setPen(dashes);
    painter->drawRect(m_frameRect);
}

void ReportCheckBox::updateBounds()
{
    ReportText::updateBounds();
    const QRectF content = m_symbol->mapRectToParent(m_symbol->boundingRect()) |
                           textItem()->mapRectToParent(textItem()->boundingRect());
    const double unit = 1.0 / horizontalScale();
    const QRectF bounds = grown(content, 2.0 * unit);
    if (bounds == m_boundingRect)
        return;
    prepareGeometryChange();
    m_frameRect = grown(content, unit);
    m_boundingRect = bounds;
}

void ReportCheckBox::focusInEvent(QFocusEvent *event)
{
    ReportText::focusInEvent(event);
    m_hasFrame = true;
    update();
}

void ReportCheckBox::focusOutEvent(QFocusEvent *event)
{
    // The same as when the keyboard comes: an editable label is edited from now on.
    ReportText::focusInEvent(event);
    m_hasFrame = false;
    update();
}

void ReportCheckBox::keyPressEvent(QKeyEvent *event)
{
    if (event->key() >= Qt::Key_Space && event->key() <= Qt::Key_Z)
        setChecked(!m_checked, true);
    else
        event->ignore();
}

void ReportCheckBox::mousePressEvent(QGraphicsSceneMouseEvent *event)
{
    if (event->button() == Qt::LeftButton)
        setChecked(!m_checked, true);
    else
        event->ignore();
}

double ReportCheckBox::horizontalScale() const
{
    const double scale = transform().m11();
    return scale > 0.0 ? scale : 1.0;
}

ReportCheckBoxCommand::ReportCheckBoxCommand(ReportCheckBox *checkBox, bool state)
    : m_checkBox(checkBox), m_state(state)
{
}

void ReportCheckBoxCommand::undo()
{
    m_checkBox->setChecked(!m_state, false);
}

void ReportCheckBoxCommand::redo()
{
    m_checkBox->setChecked(m_state, false);
}

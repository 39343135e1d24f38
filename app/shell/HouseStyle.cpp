#include "app/shell/HouseStyle.h"

#include <QPainter>
#include <QStyleOption>

namespace {

constexpr double halfCross = 3.5;
constexpr double penWidth = 1.5;
constexpr double opacityAtRest = 0.6;
constexpr int groundAlpha = 40;
constexpr double groundRadius = 3;
constexpr int lineMargin = 5;
constexpr int lineAlpha = 60;

bool isToolkitsOwn(const QProxyStyle &style)
{
    return style.baseStyle()->objectName().compare(QLatin1String("fusion"), Qt::CaseInsensitive) == 0;
}

bool desktopHasIcons()
{
    return !QIcon::fromTheme(QStringLiteral("dialog-warning")).isNull();
}

const char *signOf(QStyle::StandardPixmap picture)
{
    switch (picture) {
    case QStyle::SP_MessageBoxInformation:
        return "information";
    case QStyle::SP_MessageBoxWarning:
        return "warning";
    case QStyle::SP_MessageBoxCritical:
        return "critical";
    case QStyle::SP_MessageBoxQuestion:
        return "question";
    default:
        return nullptr;
    }
}

void drawCross(const QStyleOption &option, QPainter *painter)
{
    const bool hovered =
        option.state.testFlag(QStyle::State_Enabled) && option.state.testFlag(QStyle::State_MouseOver);
    QColor colour = option.palette.color(QPalette::WindowText);
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    if (hovered) {
        colour.setAlpha(groundAlpha);
        painter->setPen(Qt::NoPen);
        painter->setBrush(colour);
        painter->drawRoundedRect(option.rect.adjusted(1, 1, -1, -1), groundRadius, groundRadius);
    }
    colour.setAlphaF(hovered ? 1 : opacityAtRest);
    painter->setPen(QPen(colour, penWidth, Qt::SolidLine, Qt::RoundCap));
    const QPointF centre = QRectF(option.rect).center();
    const QPointF arm(halfCross, halfCross);
    const QPointF otherArm(halfCross, -halfCross);
    painter->drawLine(centre - arm, centre + arm);
    painter->drawLine(centre - otherArm, centre + otherArm);
    painter->restore();
}

bool isPlainSeparator(QStyle::ControlElement element, const QStyleOption *option)
{
    const auto *item = qstyleoption_cast<const QStyleOptionMenuItem *>(option);
    return element == QStyle::CE_MenuItem && item && item->menuItemType == QStyleOptionMenuItem::Separator &&
           item->text.isEmpty();
}

void drawLine(const QStyleOption &option, QPainter *painter)
{
    QColor colour = option.palette.color(QPalette::Text);
    colour.setAlpha(lineAlpha);
    QRectF line(option.rect.adjusted(lineMargin, 0, -lineMargin, 0));
    line.setTop(option.rect.center().y());
    line.setHeight(1);
    // An area covers at least one dot of the screen where a thin pen may fall between two.
    painter->fillRect(line, colour);
}

} // namespace

int HouseStyle::styleHint(StyleHint hint, const QStyleOption *option, const QWidget *widget,
                          QStyleHintReturn *returnData) const
{
    if (hint == SH_DialogButtonBox_ButtonsHaveIcons && isToolkitsOwn(*this) && !desktopHasIcons())
        return 0;
    return QProxyStyle::styleHint(hint, option, widget, returnData);
}

QIcon HouseStyle::standardIcon(StandardPixmap picture, const QStyleOption *option,
                               const QWidget *widget) const
{
    const char *sign = signOf(picture);
    if (sign && isToolkitsOwn(*this) && !desktopHasIcons())
        return QIcon(QStringLiteral(":/res/images/box_%1.png").arg(QLatin1String(sign)));
    return QProxyStyle::standardIcon(picture, option, widget);
}

void HouseStyle::drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
                               const QWidget *widget) const
{
    if (element == PE_IndicatorTabClose && isToolkitsOwn(*this))
        drawCross(*option, painter);
    else
        QProxyStyle::drawPrimitive(element, option, painter, widget);
}

void HouseStyle::drawControl(ControlElement element, const QStyleOption *option, QPainter *painter,
                             const QWidget *widget) const
{
    if (isPlainSeparator(element, option) && isToolkitsOwn(*this))
        drawLine(*option, painter);
    else
        QProxyStyle::drawControl(element, option, painter, widget);
}

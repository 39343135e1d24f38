#pragma once

#include <QProxyStyle>

/// The toolkit's own style, with better pictures where it has to make do with its built-in ones. Styles and
/// icons that a desktop brings are left as they are.
class HouseStyle : public QProxyStyle
{
    Q_OBJECT

public:
    using QProxyStyle::QProxyStyle;

    /// No icons beside the words of buttons: the built-in ones are dim and not made for dense screens.
    int styleHint(StyleHint hint, const QStyleOption *option, const QWidget *widget,
                  QStyleHintReturn *returnData) const override;
    /// The signs of message boxes.
    QIcon standardIcon(StandardPixmap picture, const QStyleOption *option,
                       const QWidget *widget) const override;
    /// The cross that closes a tab, in the colours of the palette.
    void drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
                       const QWidget *widget) const override;
    /// The lines between the groups of a menu, which get lost at broken scale factors.
    void drawControl(ControlElement element, const QStyleOption *option, QPainter *painter,
                     const QWidget *widget) const override;
};

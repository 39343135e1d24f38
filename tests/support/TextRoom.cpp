#include "tests/support/TextRoom.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QDockWidget>
#include <QGroupBox>
#include <QLabel>
#include <QStyle>
#include <QStyleOptionComboBox>
#include <QTabBar>
#include <QToolButton>

namespace {

QString described(const QWidget *widget, const QString &text)
{
    return QStringLiteral("%1 %2: \"%3\" in %4 x %5")
        .arg(QLatin1String(widget->metaObject()->className()), widget->objectName(), text,
             QString::number(widget->width()), QString::number(widget->height()));
}

bool fits(const QSize &wanted, const QSize &given)
{
    // At broken scale factors the toolkit rounds the size of a text up one time and down another.
    constexpr int rounding = 1;
    return wanted.width() <= given.width() + rounding && wanted.height() <= given.height() + rounding;
}

bool labelFits(const QLabel *label)
{
    if (label->wordWrap())
        return label->heightForWidth(label->width()) <= label->height() &&
               label->minimumSizeHint().width() <= label->width();
    return fits(label->sizeHint(), label->size());
}

/// Tool buttons show their icon alone.
bool showsText(const QAbstractButton *button)
{
    const auto *tool = qobject_cast<const QToolButton *>(button);
    return !button->text().isEmpty() && (!tool || tool->toolButtonStyle() != Qt::ToolButtonIconOnly);
}

/// A dock behind another one in the same place is visible to the toolkit, but was given no size yet.
bool standsBehind(const QWidget *widget)
{
    for (const QWidget *at = widget; at; at = at->parentWidget()) {
        if (qobject_cast<const QDockWidget *>(at) && at->visibleRegion().isEmpty())
            return true;
    }
    return false;
}

/// Every entry can become the one that is shown.
bool comboBoxFits(const QComboBox *box)
{
    QStyleOptionComboBox option;
    option.initFrom(box);
    option.editable = box->isEditable();
    const int room =
        box->style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, box).width();
    for (int i = 0; i < box->count(); ++i) {
        if (box->fontMetrics().horizontalAdvance(box->itemText(i)) > room)
            return false;
    }
    return true;
}

/// The text of a tab is elided when its tab is narrower.
QStringList clippedTabs(const QTabBar *bar)
{
    QStringList clipped;
    for (int i = 0; i < bar->count(); ++i) {
        const QRect tab = bar->tabRect(i);
        if (bar->fontMetrics().horizontalAdvance(bar->tabText(i)) > tab.width() ||
            tab.right() >= bar->width())
            clipped.append(described(bar, bar->tabText(i)));
    }
    return clipped;
}

} // namespace

QStringList TextRoom::clippedTexts(const QWidget *window)
{
    QStringList clipped;
    const QList<QWidget *> widgets = window->findChildren<QWidget *>();
    for (const QWidget *widget : widgets) {
        if (!widget->isVisibleTo(window) || widget->window() != window || standsBehind(widget))
            continue;
        // What stands outside of its parent is cut off there, however large it is itself.
        if (const auto *label = qobject_cast<const QLabel *>(widget)) {
            if (!label->text().isEmpty() &&
                (!labelFits(label) || !label->parentWidget()->rect().contains(label->geometry())))
                clipped.append(described(label, label->text()));
        } else if (const auto *button = qobject_cast<const QAbstractButton *>(widget)) {
            if (showsText(button) && (!fits(button->minimumSizeHint(), button->size()) ||
                                      !button->parentWidget()->rect().contains(button->geometry())))
                clipped.append(described(button, button->text()));
        } else if (const auto *choice = qobject_cast<const QComboBox *>(widget)) {
            if (!comboBoxFits(choice))
                clipped.append(described(choice, choice->currentText()));
        } else if (const auto *box = qobject_cast<const QGroupBox *>(widget)) {
            if (box->fontMetrics().horizontalAdvance(box->title()) > box->width())
                clipped.append(described(box, box->title()));
        } else if (const auto *tabs = qobject_cast<const QTabBar *>(widget)) {
            clipped.append(clippedTabs(tabs));
        }
    }
    return clipped;
}

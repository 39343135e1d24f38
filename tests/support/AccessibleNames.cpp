#include "tests/support/AccessibleNames.h"

#include <QAccessible>
#include <QtWidgets>

namespace {

/// True for what a user works with and has to be told by name when it cannot be seen.
bool needsName(const QWidget *widget)
{
    if (widget->objectName().startsWith(QLatin1String("qt_")) ||
        qobject_cast<QAbstractSpinBox *>(widget->parentWidget()) ||
        qobject_cast<QComboBox *>(widget->parentWidget()) ||
        qobject_cast<QTabBar *>(widget->parentWidget()) ||
        qobject_cast<const QDockWidget *>(widget->parentWidget()) || widget->inherits("QTableCornerButton"))
        return false;
    return qobject_cast<const QAbstractButton *>(widget) || qobject_cast<const QLineEdit *>(widget) ||
           qobject_cast<const QPlainTextEdit *>(widget) || qobject_cast<const QComboBox *>(widget) ||
           qobject_cast<const QAbstractSpinBox *>(widget) || qobject_cast<const QTreeView *>(widget) ||
           qobject_cast<const QTableView *>(widget) || qobject_cast<const QGraphicsView *>(widget);
}

} // namespace

QStringList AccessibleNames::missingIn(const QWidget *window)
{
    QStringList findings;
    const QList<QWidget *> widgets = window->findChildren<QWidget *>();
    for (QWidget *widget : widgets) {
        // The toolkit keeps the text of a button to itself while the button is disabled.
        const auto *button = qobject_cast<QAbstractButton *>(widget);
        if (!needsName(widget) || (button && !button->text().isEmpty()))
            continue;
        QAccessibleInterface *told = QAccessible::queryAccessibleInterface(widget);
        if (!told || told->text(QAccessible::Name).trimmed().isEmpty())
            findings.append(QStringLiteral("%1: %2 \"%3\" in %4")
                                .arg(window->metaObject()->className(), widget->metaObject()->className(),
                                     widget->objectName(), widget->parentWidget()->objectName()));
    }
    return findings;
}

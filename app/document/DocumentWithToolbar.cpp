#include "app/document/DocumentWithToolbar.h"

#include "app/core/Shell.h"

#include <QAction>
#include <QCoreApplication>
#include <QScrollArea>
#include <QToolBar>
#include <QToolButton>
#include <QVBoxLayout>

DocumentWithToolbar::DocumentWithToolbar(const QString &path, QWidget *parent)
    : AbstractDocument(path, parent)
    , m_layout(new QVBoxLayout(this))
    , m_toolBar(new QToolBar)
    , m_scrollArea(new QScrollArea)
{
    m_layout->setSpacing(0);
    m_layout->setContentsMargins(0, 0, 0, 0);
    m_toolBar->setFloatable(false);
    m_toolBar->setStyleSheet(QStringLiteral("background-image: url(:/images/toolbar_bg.png);"));
    m_scrollArea->setFrameShape(QFrame::NoFrame);
    m_scrollArea->setWidgetResizable(true);
    m_layout->addWidget(m_toolBar);
    m_layout->addWidget(m_scrollArea);
}

DocumentWithToolbar::~DocumentWithToolbar()
{
    // In the order of their making, while the document is still whole: a view goes before its scene.
    delete m_layout;
    delete m_toolBar;
    delete m_scrollArea;
}

void DocumentWithToolbar::replaceScrollArea(QWidget *widget)
{
    m_layout->removeWidget(m_scrollArea);
    delete m_scrollArea;
    m_scrollArea = nullptr;
    m_layout->addWidget(widget);
}

void DocumentWithToolbar::addToolActions(std::initializer_list<ToolAction> rows)
{
    for (const ToolAction &row : rows) {
        if (row.startsGroup)
            m_toolBar->addSeparator();
        QAction *action =
            m_toolBar->addAction(QIcon(QString::fromLatin1(row.icon)),
                                 QCoreApplication::translate(metaObject()->className(), row.toolTip));
        action->setObjectName(QLatin1String(row.objectName));
        action->setToolTip(action->text());
        action->setShortcut(QKeySequence(QLatin1String(row.shortcut)));
        action->setEnabled(row.startsEnabled);
        *row.action = action;
    }
}

void DocumentWithToolbar::showEvent(QShowEvent *event)
{
    AbstractDocument::showEvent(event);
    const QList<QToolButton *> buttons = m_toolBar->findChildren<QToolButton *>();
    for (QToolButton *button : buttons) {
        if (button->focusPolicy() == Qt::TabFocus)
            continue;
        // The toolkit leaves tool buttons to the mouse.
        button->setFocusPolicy(Qt::TabFocus);
        // The ground of the bar is that of its buttons, too, where it would be seen twice.
        button->setStyleSheet(QStringLiteral("background: none;"));
    }
}

void DocumentWithToolbar::leaveKeyToShell(QAction *save)
{
    if (Shell::instance())
        save->setShortcutContext(Qt::WidgetShortcut);
}

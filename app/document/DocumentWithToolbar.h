#pragma once

#include "app/document/AbstractDocument.h"

#include <initializer_list>

class QAction;
class QScrollArea;
class QToolBar;
class QVBoxLayout;

/// A document with a tool bar above a scroll area. A subclass fills the bar and sets the area's widget.
class DocumentWithToolbar : public AbstractDocument
{
    Q_OBJECT

public:
    explicit DocumentWithToolbar(const QString &path, QWidget *parent = nullptr);
    ~DocumentWithToolbar() override;

protected:
    /// A row of the tool bar.
    struct ToolAction
    {
        /// Where the action goes.
        QAction **action;
        const char *objectName;
        const char *icon;
        /// Its text, too, which is what those hear of it who do not see the icon. Translated in the context
        /// of the document's class.
        const char *toolTip;
        const char *shortcut;
        bool startsEnabled;
        bool startsGroup;
    };

    QToolBar *toolBar() const { return m_toolBar; }
    QScrollArea *scrollArea() const { return m_scrollArea; }
    /// Shows a widget in place of the scroll area, which goes. The widget stays the subclass's.
    void replaceScrollArea(QWidget *widget);

    /// Appends actions to the tool bar, each group behind a separator.
    void addToolActions(std::initializer_list<ToolAction> rows);

    /// Leaves the key of the document's Save to the main window, if there is one: its Save has the same key
    /// and saves the active document, and of two that both want a key neither would get it.
    static void leaveKeyToShell(QAction *save);

    void showEvent(QShowEvent *event) override;

private:
    QVBoxLayout *m_layout;
    QToolBar *m_toolBar;
    QScrollArea *m_scrollArea;
};

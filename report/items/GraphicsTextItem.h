#pragma once

#include <QGraphicsTextItem>

class ReportItemHost;

/// The text of a report item: edits in place and shrinks what is too long for its box.
class GraphicsTextItem : public QGraphicsTextItem
{
    Q_OBJECT

public:
    explicit GraphicsTextItem(QGraphicsItem *parent = nullptr);

    QRectF boundingRect() const override;

    /// False inside a table cell, where some keys lead to other cells.
    bool isStandalone() const { return m_standalone; }
    void setStandalone(bool standalone) { m_standalone = standalone; }
    double boxWidth() const { return m_boxWidth; }
    double boxHeight() const { return m_boxHeight; }
    void setBox(const QSizeF &box);
    /// The user can edit the text as it stands.
    bool isEditor() const;
    void setEditor(bool editor);
    double basePointSize() const { return m_basePointSize; }
    void setBaseFont(const QFont &font);
    bool isMenuOpen() const { return m_menuOpen; }

    /// Takes the keyboard: with a text for the content, or with all of the present content selected.
    void startEditing(const QString &initial);
    /// Makes the text as small as its box demands.
    void fit();
    /// Go one step of the text's own history back or forth, under the user's eyes.
    void undoStep();
    void redoStep();

signals:
    /// The cursor is to leave for the table cell so many columns and rows away.
    void requestMove(int columns, int rows);
    /// The fit has given the text another scale.
    void fitted();
    /// The text is at another step of its own history.
    void stepped();

protected:
    void contextMenuEvent(QGraphicsSceneContextMenuEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    void setEditing(bool editing);
    void fitIfChanged();
    bool leaveCell(QKeyEvent *event);
    bool handleShortcut(QKeyEvent *event);
    void showMenu(const QPoint &screenPosition);
    void copy();
    void cut();
    void paste();

    bool m_standalone = true;
    double m_boxWidth = -1.0;
    double m_boxHeight = -1.0;
    QString m_fittedText;
    double m_basePointSize = 8.5;
    /// The context menu has the keyboard for a while; the editor stays as it is.
    bool m_menuOpen = false;
    /// From the start of editing to the loss of the keyboard.
    bool m_editing = false;
};

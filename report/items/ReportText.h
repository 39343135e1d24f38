#pragma once

#include "report/items/ReportResizableItem.h"

class GraphicsTextItem;

/// A box of text: a label, or a field to fill in.
class ReportText : public ReportResizableItem
{
    Q_OBJECT

public:
    enum
    {
        Type = ReportTextType
    };

    explicit ReportText(QGraphicsItem *parent = nullptr);

    int type() const override;
    bool isTabStop() const override;
    const QString &elementName() const override;
    bool writeXml(QDomElement &element, bool overlayOnly, ReportFileEntries &entries) override;
    bool readXml(const QDomElement &element, bool overlayOnly, const ReportFileEntries &entries) override;
    void setItemSize(const QSizeF &size, int handle) override;
    QRectF itemRect() const override;

    QString plainText() const;
    /// Replaces the text, makes it fit, and forgets the text's own undo history.
    void setPlainText(const QString &text);
    GraphicsTextItem *textItem() const { return m_textItem; }

public slots:
    void createUndoCommand();

protected:
    /// Follows a change of the text's bounds.
    virtual void updateBounds();
    void contextMenuEvent(QGraphicsSceneContextMenuEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void mousePressEvent(QGraphicsSceneMouseEvent *event) override;

private:
    void documentChanged();
    void noteCommittedText();
    void applyStyle();
    void chooseFont();

    GraphicsTextItem *m_textItem;
    QString m_committedText;
};

#pragma once

#include <QGraphicsTextItem>

class QDomElement;

/// What a caption belongs to, as the caption sees it.
class DiagramLabelOwner
{
public:
    virtual ~DiagramLabelOwner() = default;

    /// The user wants the caption to be gone.
    virtual void removeLabel() = 0;
};

/// The caption of a component: framed text that the user moves and edits on its own. It is an item of the
/// scene beside its owner, which takes it along.
class DiagramLabel : public QGraphicsTextItem
{
    Q_OBJECT

public:
    /// A caption of its text's own size, or as wide and at least as high as `size` says where that is not
    /// negative.
    DiagramLabel(DiagramLabelOwner *owner, const QString &text, const QSizeF &size);
    /// A caption that is to be read from a file.
    explicit DiagramLabel(DiagramLabelOwner *owner);

    QString text() const { return m_text; }
    void setText(const QString &text);

    void writeXml(QDomElement &element) const;
    void readXml(const QDomElement &element);

    QRectF boundingRect() const override;
    QPainterPath shape() const override;
    bool contains(const QPointF &point) const override;
    void paint(QPainter *painter, const QStyleOptionGraphicsItem *option, QWidget *widget) override;

signals:
    /// Place or text have changed.
    void modified();

protected:
    QVariant itemChange(GraphicsItemChange change, const QVariant &value) override;
    void contextMenuEvent(QGraphicsSceneContextMenuEvent *event) override;

private:
    void setSize(const QSizeF &size);
    void showText();

    DiagramLabelOwner *m_owner;
    QString m_text;
    double m_minimumHeight = -1;
};

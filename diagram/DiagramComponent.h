#pragma once

#include "diagram/ConnectionTarget.h"
#include "diagram/DiagramLabel.h"

#include <QList>
#include <QPointer>

struct ComponentKind;
class QAction;

/// Something that wires end at, with a caption of its own in most kinds. The kinds add their drawing and
/// what is peculiar to them.
class DiagramComponent : public ConnectionTarget, public DiagramLabelOwner
{
    Q_OBJECT

public:
    ~DiagramComponent() override;

    const ComponentKind &kind() const { return m_kind; }
    int type() const override;
    QString displayName() const override;
    QString elementName() const override;
    void writeXml(QDomElement &element) const override;
    void readXml(const QDomElement &element) override;

    void snapToEdge(int cableType, QPointF &point, int &side, int state) override;
    void addConnectionPoint(ConnectionPoint *end) override;
    void removeConnectionPoint(ConnectionPoint *end) override;

    /// Null for a component without a caption.
    DiagramLabel *label() const { return m_label; }
    void removeLabel() override;

    QRectF boundingRect() const override { return m_rect; }

protected:
    /// A component that is to be read from a file.
    explicit DiagramComponent(const ComponentKind &kind);
    /// A new component.
    DiagramComponent(const ComponentKind &kind, const QString &id, const QString &caption,
                     const QPointF &position);

    QRectF rect() const { return m_rect; }
    void setRect(const QRectF &rect);
    const QList<ConnectionPoint *> &connectionPoints() const { return m_connectionPoints; }
    /// The caption has been moved or written anew.
    virtual void labelModified();
    /// Takes the component out of the drawing, with its caption; wires stay and are free at that end. Ends
    /// this object.
    void remove();

    QVariant itemChange(GraphicsItemChange change, const QVariant &value) override;
    void contextMenuEvent(QGraphicsSceneContextMenuEvent *event) override;

    /// Entries that a kind adds to its menu.
    QList<QAction *> m_furtherActions;

private:
    void takeLabel(DiagramLabel *label);
    void detachAll();

    const ComponentKind &m_kind;
    QAction *m_deleteAction = nullptr;
    /// The scene may delete the caption before its owner.
    QPointer<DiagramLabel> m_label;
    QRectF m_rect;
    QList<ConnectionPoint *> m_connectionPoints;
};

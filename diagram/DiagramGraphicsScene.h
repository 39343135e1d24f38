#pragma once

#include "app/core/GatedXml.h"
#include "diagram/DiagramConnection.h"

#include <QGraphicsScene>
#include <QHash>

class QAction;
struct ComponentKind;

/// The drawing surface of an installation diagram. It offers the components on a context menu, places wires
/// while in wire mode, hands out ids, and loads, saves and prints.
class DiagramGraphicsScene : public QGraphicsScene, public ComponentFinder
{
    Q_OBJECT

public:
    enum Mode
    {
        EditMode = 0,
        WireMode = 1
    };

    explicit DiagramGraphicsScene(QObject *parent = nullptr);
    ~DiagramGraphicsScene() override;

    /// Builds the diagram of a file. Tells the user what is wrong and returns false when it cannot be read.
    bool load(const QString &path);
    /// Writes the diagram to a file. Tells the user and returns false when it cannot be opened or the disk is
    /// full.
    bool save(const QString &path);
    /// Prints to a PDF file, without a question. Tells the user and returns false when it cannot be written.
    bool writePdf(const QString &path);

    /// Adds the items of a diagram file. False, with nothing added, when it is no XML that a diagram can
    /// have.
    bool readXml(const QByteArray &xml, GatedXml::Error *error = nullptr);
    /// The diagram as it stands in a file.
    QByteArray toXml() const;

    QString newId();
    int mode() const { return m_mode; }
    void setMode(int mode);
    int cableType() const { return m_cableType; }
    /// What new wires are to be.
    void setCableType(int cableType);
    /// The wire that is being placed, or null.
    DiagramConnection *pendingConnection() const { return m_pending; }

    ConnectionTarget *componentById(const QString &id) const override;

signals:
    void modified();
    void modeChanged(int newMode);

public slots:
    void childModified();
    /// Prints to a printer that the user chooses.
    void print();
    /// Prints to a PDF file that the user chooses.
    void exportToPdf();

protected:
    void contextMenuEvent(QGraphicsSceneContextMenuEvent *event) override;
    void mouseMoveEvent(QGraphicsSceneMouseEvent *event) override;
    void mousePressEvent(QGraphicsSceneMouseEvent *event) override;
    void mouseReleaseEvent(QGraphicsSceneMouseEvent *event) override;
    void mouseDoubleClickEvent(QGraphicsSceneMouseEvent *event) override;

private:
    void buildActions();
    void offerComponents(const QPointF &position, const QPoint &screenPosition);
    void addComponent(const ComponentKind &kind, const QPointF &position);
    void startConnection(const QPointF &position);
    void dropPendingConnection();
    void readItem(const QDomElement &element);
    void countId(const QString &id);

    /// One for each kind, in the order of the kinds.
    QVector<QAction *> m_addActions;
    int m_idCounter = 1;
    int m_mode = EditMode;
    DiagramConnection *m_pending = nullptr;
    int m_cableType = 1;
    /// Filled while a file is read only: a diagram of thousands of wires has no time to search for each end.
    QHash<QString, ConnectionTarget *> m_componentsById;
};

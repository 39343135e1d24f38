#pragma once

#include <QGraphicsItem>
#include <QObject>
#include <QString>

class QDomElement;

/// Base of the items that stand in a diagram file, each with an id of its own.
class DiagramGraphicsItem : public QObject, public QGraphicsItem
{
    Q_OBJECT
    Q_INTERFACES(QGraphicsItem)

public:
    explicit DiagramGraphicsItem(const QString &id = QString());

    QString id() const { return m_id; }
    int type() const override;

    /// The translated name for menus.
    virtual QString displayName() const = 0;
    /// The tag in files; empty for an item that is not to be stored.
    virtual QString elementName() const;
    virtual void writeXml(QDomElement &element) const;
    virtual void readXml(const QDomElement &element);

signals:
    void modified();

private:
    QString m_id;
};

#pragma once

#include "report/file/ReportFile.h"
#include "report/items/ReportItemType.h"

#include <QColor>
#include <QGraphicsObject>

class QDomElement;
class QUndoCommand;
class ReportItemHost;

/// Base of everything that stands on a report page: an id, style values that are inherited from the
/// parent unless the item's own element carries them, the two XML halves, and the links of the tab chain.
class AbstractReportItem : public QGraphicsObject
{
    Q_OBJECT

public:
    explicit AbstractReportItem(QGraphicsItem *parent = nullptr);

    /// True if Tab stops here.
    virtual bool isTabStop() const;
    /// The tag of the item's element.
    virtual const QString &elementName() const = 0;
    /// Key for merging a document into its template and for importing values; may be empty.
    virtual const QString &reportId() const;
    /// Writes the item into its element: whole, or with `overlayOnly` only what a user can have changed.
    /// Embedded images are appended to `entries`. False means no element for the item and its children.
    virtual bool writeXml(QDomElement &element, bool overlayOnly, ReportFileEntries &entries);
    /// Reads the item from its element in one of the two forms, with the images in `entries`.
    virtual bool readXml(const QDomElement &element, bool overlayOnly, const ReportFileEntries &entries);
    /// The item that style values are inherited from; null at the top.
    virtual AbstractReportItem *parentReportItem() const;

    bool isEditable() const { return m_editable; }
    QColor colour() const { return m_colour; }
    QColor backgroundColour() const { return m_backgroundColour; }
    QString font() const { return m_font; }
    /// Point size at 96 dots per inch.
    double fontSize() const { return m_fontSize; }
    /// On the scale from 0 to 99.
    int fontWeight() const { return m_fontWeight; }
    double padding() const { return m_padding; }

    AbstractReportItem *nextTabStop() const { return m_next; }
    AbstractReportItem *previousTabStop() const { return m_previous; }
    /// Makes `next` follow this item in the tab chain.
    void linkTabStop(AbstractReportItem *next);

signals:
    void modified(bool changed);
    /// A step of the user's work, to be pushed on the undo stack by the receiver, who takes it over.
    void newCommand(QUndoCommand *command);

protected:
    /// The scene as host, or null when the item stands in none.
    ReportItemHost *host() const;
    /// Emits newCommand, which hands the command over. Without a receiver the command is dropped.
    void offerCommand(QUndoCommand *command);

private:
    void writeStyle(QDomElement &element) const;
    void inheritStyle(const AbstractReportItem &parent);
    void readStyle(const QDomElement &element);

    QString m_id;
    /// Which style attributes the item's own element carried.
    quint8 m_setMask = 0;
    bool m_editable = false;
    QColor m_colour = Qt::black;
    QColor m_backgroundColour = Qt::white;
    QString m_font = QStringLiteral("Arial");
    double m_fontSize = 8.5;
    int m_fontWeight = 50;
    double m_padding = 2.0;
    AbstractReportItem *m_next = nullptr;
    AbstractReportItem *m_previous = nullptr;
};

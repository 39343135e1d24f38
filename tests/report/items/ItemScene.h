#pragma once

#include "report/items/AbstractReportItem.h"
#include "report/items/ReportItemFactory.h"
#include "report/items/ReportItemHost.h"
#include "report/items/ReportTable.h"
#include "report/items/ReportTableCell.h"

#include <QDomDocument>
#include <QGraphicsScene>
#include <QGraphicsView>
#include <QUndoStack>

Q_DECLARE_METATYPE(QUndoCommand *)

/// A scene as the items need it, with an undo stack and a view to send events to.
class ItemScene : public QGraphicsScene, public ReportItemHost
{
public:
    ItemScene()
    {
        // For signal spies.
        qRegisterMetaType<QUndoCommand *>();
        setSceneRect(0, 0, 800, 600);
    }

    QUndoStack *undoStack() const override { return &m_stack; }
    void adopt(AbstractReportItem *item) override
    {
        connect(item, &AbstractReportItem::newCommand, &m_stack, &QUndoStack::push, Qt::UniqueConnection);
    }

    /// An element from its text.
    static QDomElement element(const QString &xml)
    {
        QDomDocument document;
        return document.setContent(xml) ? document.documentElement() : QDomElement();
    }

    /// The item of an element in full form, in the scene or below a parent.
    template <typename Item = AbstractReportItem>
    Item *read(const QString &xml, QGraphicsItem *parent = nullptr, const ReportFileEntries &entries = {})
    {
        const QDomElement source = element(xml);
        AbstractReportItem *item = createReportItem(source.tagName(), parent);
        if (!parent)
            addItem(item);
        item->readXml(source, false, entries);
        adopt(item);
        if (auto *table = dynamic_cast<ReportTable *>(item)) {
            const QList<ReportTableCell *> cells = table->cells();
            for (ReportTableCell *cell : cells)
                adopt(cell);
        }
        return static_cast<Item *>(item);
    }

    /// The element that an item writes; null if it writes none.
    QDomElement written(AbstractReportItem *item, bool overlayOnly, ReportFileEntries *entries = nullptr)
    {
        ReportFileEntries own{{QStringLiteral("xml"), {}}};
        QDomElement result = m_document.createElement(item->elementName());
        return item->writeXml(result, overlayOnly, entries ? *entries : own) ? result : QDomElement();
    }

    /// Shows the scene in an active window, so that items can have the keyboard.
    bool show()
    {
        m_view.setScene(this);
        m_view.setFrameShape(QFrame::NoFrame);
        m_view.setMouseTracking(true);
        m_view.resize(820, 620);
        m_view.show();
        m_view.activateWindow();
        return QTest::qWaitForWindowActive(&m_view);
    }

    QWidget *viewport() const { return m_view.viewport(); }
    QGraphicsView &view() { return m_view; }
    /// A point of the scene in the viewport.
    QPoint at(const QPointF &scenePosition) const { return m_view.mapFromScene(scenePosition); }
    void click(const QPointF &scenePosition, Qt::MouseButton button = Qt::LeftButton)
    {
        QTest::mouseClick(viewport(), button, Qt::NoModifier, at(scenePosition));
    }
    void doubleClick(const QPointF &scenePosition)
    {
        QTest::mouseDClick(viewport(), Qt::LeftButton, Qt::NoModifier, at(scenePosition));
    }
    void key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QTest::keyClick(viewport(), key, modifiers);
    }
    void type(const QString &text) { QTest::keyClicks(viewport(), text); }
    /// Presses, moves and releases the left button.
    void drag(const QPointF &from, const QPointF &to)
    {
        QTest::mouseMove(viewport(), at(from));
        QTest::mousePress(viewport(), Qt::LeftButton, Qt::NoModifier, at(from));
        moveTo((from + to) / 2.0);
        moveTo(to);
        QTest::mouseRelease(viewport(), Qt::LeftButton, Qt::NoModifier, at(to));
    }
    /// A move with the left button held, which the test library's own call does not send.
    void moveTo(const QPointF &scenePosition)
    {
        const QPoint position = at(scenePosition);
        QMouseEvent event(QEvent::MouseMove, position, viewport()->mapToGlobal(position), Qt::NoButton,
                          Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(viewport(), &event);
    }
    void contextMenu(const QPointF &scenePosition)
    {
        const QPoint position = at(scenePosition);
        QContextMenuEvent event(QContextMenuEvent::Mouse, position, viewport()->mapToGlobal(position));
        QCoreApplication::sendEvent(viewport(), &event);
    }

private:
    QDomDocument m_document;
    mutable QUndoStack m_stack;
    QGraphicsView m_view;
};

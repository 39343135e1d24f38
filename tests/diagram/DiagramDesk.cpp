#include "tests/diagram/DiagramDesk.h"

#include "tests/support/MenuWatcher.h"

#include <QContextMenuEvent>
#include <QPainter>
#include <QtTest>

DiagramDesk::DiagramDesk()
{
    view.setScene(&scene);
    view.setSceneRect(0, 0, 800, 600);
    view.setFrameShape(QFrame::NoFrame);
    view.setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    view.setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    view.resize(800, 600);
    view.show();
    QTest::qWait(1);
}

void DiagramDesk::read(const QByteArray &items)
{
    GatedXml::Error error;
    if (!scene.readXml("<installation_diagram>" + items + "</installation_diagram>", &error))
        QTest::qFail(qPrintable(error.message), __FILE__, __LINE__);
}

QDomElement DiagramDesk::written() const
{
    if (!m_written.setContent(scene.toXml()))
        QTest::qFail("what was written is no XML", __FILE__, __LINE__);
    return m_written.documentElement();
}

QDomElement DiagramDesk::written(const QString &id) const
{
    const QDomElement root = written();
    for (QDomElement element = root.firstChildElement(); !element.isNull();
         element = element.nextSiblingElement()) {
        if (element.attribute(QStringLiteral("id")) == id)
            return element;
    }
    return QDomElement();
}

DiagramGraphicsItem *DiagramDesk::anyItem(const QString &id) const
{
    const QList<QGraphicsItem *> items = scene.items();
    for (QGraphicsItem *item : items) {
        auto *diagramItem = dynamic_cast<DiagramGraphicsItem *>(item);
        if (diagramItem && diagramItem->id() == id)
            return diagramItem;
    }
    return nullptr;
}

void DiagramDesk::move(const QPointF &point)
{
    QTest::mouseMove(view.viewport(), at(point));
    QCoreApplication::processEvents();
}

void DiagramDesk::press(const QPointF &point, Qt::MouseButton button)
{
    QTest::mousePress(view.viewport(), button, Qt::NoModifier, at(point));
}

void DiagramDesk::release(const QPointF &point, Qt::MouseButton button)
{
    QTest::mouseRelease(view.viewport(), button, Qt::NoModifier, at(point));
}

void DiagramDesk::click(const QPointF &point)
{
    move(point);
    press(point);
    release(point);
}

void DiagramDesk::drag(const QPointF &from, const QPointF &to)
{
    move(from);
    press(from);
    constexpr int steps = 5;
    for (int i = 1; i <= steps; ++i) {
        const QPoint place = at(from + (to - from) * i / steps);
        QMouseEvent event(QEvent::MouseMove, place, view.viewport()->mapToGlobal(place), Qt::NoButton,
                          Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(view.viewport(), &event);
    }
    release(to);
}

QStringList DiagramDesk::menu(const QPointF &point, const QString &choice)
{
    const MenuWatcher watcher(choice);
    QContextMenuEvent event(QContextMenuEvent::Mouse, at(point), view.viewport()->mapToGlobal(at(point)));
    QCoreApplication::sendEvent(view.viewport(), &event);
    return watcher.texts();
}

QImage DiagramDesk::picture(const QRectF &part)
{
    QImage image(part.size().toSize(), QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    scene.render(&painter, QRectF(QPointF(), part.size()), part);
    return image;
}

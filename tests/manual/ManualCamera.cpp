#include "tests/manual/ManualCamera.h"

#include "tests/support/Patience.h"
#include "tests/support/TestHome.h"

#include <QDir>
#include <QPixmap>
#include <QScreen>
#include <QtTest>
#include <QtWidgets>

namespace {

/// What the screen shows at a place, given in global coordinates.
void takeScreen(const QRect &place, const QString &name)
{
    // Menus fade in, cursors blink, windows get their frames: the same state for all.
    QTest::qWait(250);
    const QString folder = qEnvironmentVariable("KELMAR_SCREENSHOTS");
    if (folder.isEmpty())
        return;
    QVERIFY(QDir().mkpath(folder));
    const QPixmap picture =
        QGuiApplication::primaryScreen()->grabWindow(0, place.x(), place.y(), place.width(), place.height());
    QVERIFY(picture.save(folder + QLatin1Char('/') + name + QStringLiteral(".png")));
}

/// Where a window with its frame is once it has come to rest: of a change of its size an X server may tell
/// the older state after the newer one has been asked for.
QRect restingFrame(const QWindow *window)
{
    QRect place = window->frameGeometry();
    for (QRect before; before != place; place = window->frameGeometry()) {
        before = place;
        QTest::qWait(300);
    }
    return place;
}

QRect placeOf(const QWidget *widget)
{
    return {widget->mapToGlobal(QPoint()), widget->size()};
}

} // namespace

void ManualCamera::takeFramed(QWidget *window, const QString &name)
{
    QVERIFY(QTest::qWaitForWindowExposed(window, patience));
    // The window manager tells only after a while how wide the frame is that it has drawn; a widget asks
    // once and keeps the answer.
    const QWindow *handle = window->windowHandle();
    QTRY_VERIFY(handle->frameGeometry().height() > handle->geometry().height());
    QTRY_COMPARE(handle->size(), window->size());
    takeScreen(restingFrame(handle), name);
}

void ManualCamera::take(QWidget *widget, const QString &name)
{
    take(widget, widget->rect(), name);
}

void ManualCamera::take(QWidget *widget, const QRect &part, const QString &name)
{
    QVERIFY(QTest::qWaitForWindowExposed(widget->window()));
    takeScreen(part.translated(widget->mapToGlobal(QPoint())), name);
}

void ManualCamera::takeBoth(QWidget *one, QWidget *other, const QString &name)
{
    takeScreen(placeOf(one) | placeOf(other), name);
}

QString ManualCamera::besidePictures(const QString &name)
{
    const QString folder =
        qEnvironmentVariable("KELMAR_SCREENSHOTS", TestHome::instance()->path(QStringLiteral("pictures")));
    if (!QDir().mkpath(folder))
        QTest::qFail(qPrintable(folder), __FILE__, __LINE__);
    return folder + QLatin1Char('/') + name;
}

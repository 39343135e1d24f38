// Another program that drags files: shows a small window, and drags from it to a place on the screen.
//   dragsource X Y FILE ...
// Ends when the target has taken the files or refused them.

#include "tests/support/Patience.h"

#include <QApplication>
#include <QDrag>
#include <QLabel>
#include <QMimeData>
#include <QTimer>
#include <QUrl>
#include <QWindow>
#include <QtTest>

namespace {

class Source : public QLabel
{
public:
    explicit Source(const QList<QUrl> &urls) : m_urls(urls) { setText(QStringLiteral("files")); }

protected:
    void mousePressEvent(QMouseEvent *) override
    {
        auto *drag = new QDrag(this);
        auto *files = new QMimeData;
        files->setUrls(m_urls);
        drag->setMimeData(files);
        // It lives until the target, which fetches the files after the drop, says that it is done.
        connect(drag, &QObject::destroyed, qApp, &QCoreApplication::quit);
        drag->exec(Qt::CopyAction);
    }

private:
    QList<QUrl> m_urls;
};

} // namespace

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    const QPoint target(arguments.value(1).toInt(), arguments.value(2).toInt());
    QList<QUrl> urls;
    for (const QString &path : arguments.mid(3))
        urls.append(QUrl::fromLocalFile(path));
    Source source(urls);
    source.setGeometry(900, 700, 80, 40);
    source.show();
    if (!QTest::qWaitForWindowExposed(&source, patience))
        return 1;
    QWindow *window = source.windowHandle();
    // The drag runs a loop of its own inside the press, so each thing the hand does has its own timer.
    int time = 0;
    for (const QPoint &step : {QPoint(20, 20), QPoint(10, 0), QPoint(3, 0), QPoint(0, 0)})
        QTimer::singleShot(time += 100, window,
                           [=] { QTest::mouseMove(window, window->mapFromGlobal(target + step)); });
    QTimer::singleShot(time + 300, window, [=] {
        QTest::mouseRelease(window, Qt::LeftButton, Qt::NoModifier, window->mapFromGlobal(target));
    });
    QTimer::singleShot(0, window,
                       [=] { QTest::mousePress(window, Qt::LeftButton, Qt::NoModifier, QPoint(10, 10)); });
    return QApplication::exec();
}

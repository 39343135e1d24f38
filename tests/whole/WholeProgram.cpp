#include "tests/whole/WholeProgram.h"

#include "app/shell/Application.h"
#include "app/shell/MainWindow.h"
#include "tests/support/Patience.h"
#include "tests/whole/Hands.h"

#include <QApplication>
#include <QDir>
#include <QPixmap>
#include <QPointer>
#include <QScreen>
#include <QThread>
#include <QTimer>
#include <QtTest>

#include <memory>

namespace {

/// Looks for a main window that is ready to be worked in.
class Session
{
public:
    Session(const WholeProgram::Preparation &prepare, WholeProgram::User user) : m_user(std::move(user))
    {
        prepare(m_watcher);
        QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] { look(); });
        m_timer.start(20);
    }

private:
    void look()
    {
        MainWindow *window = MainWindow::instance();
        // A window that was closed while a start dialog was on its way out, before the event loop began,
        // could not end that loop.
        if (m_served && window == m_served && !m_working && !window->isVisible())
            QCoreApplication::quit();
        if (m_working || !window || window == m_served || !window->isVisible() ||
            QThread::currentThread()->loopLevel() < 1 || QApplication::activeModalWidget())
            return;
        m_working = true;
        // Lets the welcome come up, which is posted by the window's constructor.
        QTest::qWait(150);
        while (QApplication::activeModalWidget())
            QTest::qWait(20);
        Hands::bringToFront(window);
        ++m_pass;
        m_served = window;
        const QPointer<MainWindow> guard(window);
        m_user(*window, m_watcher, m_pass);
        m_working = false;
        if (guard && guard->isVisible() && !guard->close())
            QCoreApplication::quit();
    }

    BoxWatcher m_watcher;
    WholeProgram::User m_user;
    QTimer m_timer;
    QPointer<MainWindow> m_served;
    bool m_working = false;
    int m_pass = 0;
};

WholeProgram::Preparation preparation;
WholeProgram::User userAtWork;
std::unique_ptr<Session> session;

void startSession()
{
    if (preparation)
        session = std::make_unique<Session>(preparation, userAtWork);
}

void endSession()
{
    session.reset();
}

} // namespace

int WholeProgram::run(const QStringList &arguments, const Preparation &prepare, const User &user)
{
    static const bool registered = (qAddPreRoutine(startSession), true);
    Q_UNUSED(registered)
    preparation = prepare;
    userAtWork = user;

    QVector<QByteArray> texts{"kelmar"};
    for (const QString &argument : arguments)
        texts.append(argument.toLocal8Bit());
    QVector<char *> pointers;
    for (QByteArray &text : texts)
        pointers.append(text.data());
    pointers.append(nullptr);
    int count = texts.size();
    qAddPostRoutine(endSession);
    return runKelmar(count, pointers.data(), std::chrono::milliseconds(50));
}

void WholeProgram::takePicture(QWidget *window, const QString &name)
{
    if (!qEnvironmentVariableIsSet("KELMAR_SCREENSHOTS"))
        return;
    QVERIFY(QTest::qWaitForWindowExposed(window, patience));
    QTest::qWait(150);
    const QRect place = window->frameGeometry();
    QScreen *screen = QGuiApplication::primaryScreen();
    keepPicture(screen->grabWindow(0, place.x(), place.y(), place.width(), place.height()).toImage(), name);
}

void WholeProgram::keepPicture(const QImage &picture, const QString &name)
{
    const QString folder = qEnvironmentVariable("KELMAR_SCREENSHOTS");
    if (folder.isEmpty())
        return;
    QDir().mkpath(folder);
    picture.save(folder + QLatin1Char('/') + name + QStringLiteral(".png"));
}

#include "app/shell/Application.h"

#include "app/core/Folders.h"
#include "app/core/Fonts.h"
#include "app/core/Identity.h"
#include "app/core/Language.h"
#include "app/dialogs/DialogLanguageChooser.h"
#include "app/shell/HouseStyle.h"
#include "app/shell/MainWindow.h"
#include "res/Resources.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QPainter>
#include <QPixmap>
#include <QSettings>
#include <QSharedPointer>
#include <QSplashScreen>
#include <QThread>
#include <QWindow>

namespace {

QIcon windowIcon()
{
    return QIcon(Identity::brandedImage(QStringLiteral("logo.ico")));
}

/// Writes its message below the name in the picture, as the about box has it.
class Splash final : public QSplashScreen
{
public:
    using QSplashScreen::QSplashScreen;

protected:
    void drawContents(QPainter *painter) override
    {
        painter->setPen(Qt::white);
        painter->setFont(QFont(QStringLiteral("Arial"), 10, QFont::Bold));
        painter->drawText(rect().adjusted(35, 0, 0, -22), Qt::AlignLeft | Qt::AlignBottom, message());
    }
};

void showSplash(QSplashScreen &splash, std::chrono::milliseconds wait)
{
    splash.showMessage(Identity::applicationVersion());
    splash.show();
    // An X server needs a moment and more than one round of events until the picture is on screen.
    QElapsedTimer patience;
    patience.start();
    do
        QCoreApplication::processEvents();
    while (!splash.windowHandle()->isExposed() && patience.elapsed() < 500);
    splash.repaint();
    QCoreApplication::processEvents();
    QThread::msleep(static_cast<unsigned long>(wait.count()));
}

/// Has the language chosen unless one is stored. Both ways out of the dialog store one.
void ensureLanguage()
{
    if (QSettings().contains(QStringLiteral("locale")))
        return;
    DialogLanguageChooser chooser;
    chooser.setWindowIcon(windowIcon());
    chooser.setWindowFlags(chooser.windowFlags() | Qt::WindowStaysOnTopHint);
    chooser.activateWindow();
    chooser.exec();
}

void openFirstArgument(int argc, char **argv)
{
    if (argc <= 1)
        return;
    const QString path = QString::fromLocal8Bit(argv[1]);
    if (QFileInfo::exists(path) && MainWindow::instance())
        MainWindow::instance()->openDocument(path);
}

/// One life of the main window. True if it is to come back.
bool runOnce(int argc, char **argv, bool withSplash, std::chrono::milliseconds splashWait)
{
    Splash splash(QPixmap(Identity::brandedImage(QStringLiteral("splash.png"))));
    if (withSplash)
        showSplash(splash, splashWait);
    ensureLanguage();
    loadTranslations();
    const QSharedPointer<MainWindow> window(new MainWindow);
    window->show();
    window->setWindowTitle(Identity::applicationName());
    window->setWindowIcon(windowIcon());
    if (withSplash)
        splash.finish(window.data());
    openFirstArgument(argc, argv);
    QCoreApplication::exec();
    return restartRequested();
}

} // namespace

int runKelmar(int &argc, char **argv, std::chrono::milliseconds splashWait)
{
    // XML attributes are written in hash order: with a fixed seed a file is the same at each saving.
    qSetGlobalQHashSeed(0);
    QApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    QApplication::setHighDpiScaleFactorRoundingPolicy(Qt::HighDpiScaleFactorRoundingPolicy::PassThrough);
    QApplication application(argc, argv);
    // Only now is it known which style the desktop has.
    QApplication::setStyle(new HouseStyle);
    initResources();
    Identity::applyToApplication();
    substituteMissingFonts();
    // Whoever runs the program twice in one process finds the settings as they are then.
    Folders::instance(true);
    bool withSplash = true;
    while (runOnce(argc, argv, withSplash, splashWait))
        withSplash = false;
    return 0;
}

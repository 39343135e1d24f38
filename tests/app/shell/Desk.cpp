#include "tests/app/shell/Desk.h"

#include "app/core/Folders.h"
#include "app/core/Language.h"
#include "app/document/AbstractDocument.h"
#include "browser/ProjectTreeView.h"
#include "res/Resources.h"
#include "tests/support/Patience.h"
#include "tests/support/TestHome.h"

#include <QAction>
#include <QApplication>
#include <QFileSystemModel>
#include <QLineEdit>
#include <QMdiArea>
#include <QMenu>
#include <QSettings>
#include <QTabBar>
#include <QTimer>
#include <QtTest>

void Desk::clear()
{
    initResources();
    TestHome::instance()->reset();
    QSettings().setValue("Welcome/show", false);
    useLanguage("en", QLocale("en"));
    setRestartRequested(false);
    Folders::instance(true);
}

Desk::Desk()
{
    show();
}

Desk::~Desk() = default;

void Desk::restart()
{
    QVERIFY(window->close());
    window.reset();
    Folders::instance(true);
    show();
}

void Desk::show()
{
    window = std::make_unique<MainWindow>();
    tree = window->findChild<ProjectTreeView *>();
    area = window->findChild<QMdiArea *>();
    window->show();
    QVERIFY(QTest::qWaitForWindowExposed(window.get()));
    // The welcome may be up for a moment; the window does not always get the keyboard back by itself.
    QTRY_VERIFY(!QApplication::activeModalWidget());
    window->activateWindow();
    if (!QTest::qWaitFor([this] { return QApplication::activeWindow() == window.get(); }))
        QApplication::setActiveWindow(window.get());
}

QAction *Desk::action(const char *name) const
{
    return window->findChild<QAction *>(QLatin1String(name));
}

QTabBar *Desk::tabs() const
{
    return area->findChild<QTabBar *>();
}

QStringList Desk::openNames() const
{
    QStringList names;
    for (const AbstractDocument *document : window->documents())
        names.append(document->fileName());
    return names;
}

QString Desk::path(const QString &relative)
{
    return TestHome::instance()->projectsRoot() + '/' + relative;
}

QString Desk::addReport(const QString &relative)
{
    initResources();
    writeFile(path(relative), readFile(":/res/reports_en/default.kelatr"));
    return path(relative);
}

QPoint Desk::place(const QString &relative) const
{
    const auto *model = qobject_cast<QFileSystemModel *>(tree->model());
    // Folders are opened on the way down; their contents come in from another thread.
    const QStringList parts = relative.split('/');
    for (int i = 1; i < parts.size(); ++i)
        tree->expand(model->index(path(parts.mid(0, i).join('/'))));
    if (!QTest::qWaitFor([&] { return tree->visualRect(model->index(path(relative))).isValid(); }, patience))
        QTest::qFail(qPrintable("not in the tree: " + relative), __FILE__, __LINE__);
    tree->scrollTo(model->index(path(relative)));
    return tree->visualRect(model->index(path(relative))).center();
}

void Desk::click(const QString &relative) const
{
    QTest::mouseClick(tree->viewport(), Qt::LeftButton, Qt::NoModifier, place(relative));
    // A second click soon after would count as a double click, a later one as the wish to rename.
    QCOMPARE(current(), relative);
}

void Desk::doubleClick(const QString &relative) const
{
    const QPoint position = place(relative);
    QTest::mouseClick(tree->viewport(), Qt::LeftButton, Qt::NoModifier, position);
    QTest::mouseDClick(tree->viewport(), Qt::LeftButton, Qt::NoModifier, position);
}

QString Desk::below(const QString &path) const
{
    return QDir(TestHome::instance()->projectsRoot()).relativeFilePath(path);
}

QStringList Desk::selected() const
{
    QStringList names;
    for (const QModelIndex &index : tree->selectionModel()->selectedIndexes())
        names.append(below(index.data(QFileSystemModel::FilePathRole).toString()));
    return names;
}

QString Desk::current() const
{
    const QModelIndex index = tree->currentIndex();
    return index.isValid() ? below(index.data(QFileSystemModel::FilePathRole).toString()) : QString();
}

QLineEdit *Desk::nameEditor() const
{
    return tree->findChild<QLineEdit *>();
}

void Desk::contextMenu(const QString &relative, const std::function<void(QMenu *)> &look) const
{
    const QPoint position = relative.isEmpty() ? QPoint(5, tree->viewport()->height() - 5) : place(relative);
    bool seen = false;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, &timer, [&] {
        if (auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget())) {
            timer.stop();
            seen = true;
            look(menu);
            menu->close();
        }
    });
    timer.start(5);
    emit tree->customContextMenuRequested(position);
    QVERIFY(seen);
}

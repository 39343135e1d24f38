#include "tests/manual/ManualDesk.h"

#include "app/document/AbstractDocument.h"
#include "app/shell/MainWindow.h"
#include "report/GraphicalReportDocument.h"
#include "report/ReportScene.h"
#include "report/items/ReportTable.h"
#include "report/items/ReportTableCell.h"
#include "tests/manual/ManualCamera.h"
#include "tests/support/Patience.h"
#include "tests/whole/Hands.h"

#include <QtTest>
#include <QtWidgets>

namespace {

/// Room for a page beside the docks, made smaller by one step.
const QSize usualWindow(900, 660);

} // namespace

void ManualDesk::work(const std::function<void(ManualDesk &, BoxWatcher &)> &user,
                      const WholeProgram::Preparation &prepare)
{
    int windows = 0;
    WholeProgram::run({}, prepare, [&](MainWindow &window, BoxWatcher &watcher, int) {
        ++windows;
        ManualDesk desk(window);
        desk.arrange(usualWindow);
        user(desk, watcher);
    });
    QCOMPARE(windows, 1);
}

ManualDesk::ManualDesk(MainWindow &mainWindow)
    : window(mainWindow)
    , tree(window.findChild<QTreeView *>(QStringLiteral("treeView")))
    , model(qobject_cast<QFileSystemModel *>(tree->model()))
{
}

QAction *ManualDesk::action(const char *name) const
{
    return window.findChild<QAction *>(QLatin1String(name));
}

QMenu *ManualDesk::menu(const char *name) const
{
    return window.findChild<QMenu *>(QLatin1String(name));
}

QDockWidget *ManualDesk::dock(const char *name) const
{
    return window.findChild<QDockWidget *>(QLatin1String(name));
}

AbstractDocument *ManualDesk::document() const
{
    return window.activeDocument();
}

GraphicalReportDocument *ManualDesk::report() const
{
    return qobject_cast<GraphicalReportDocument *>(document());
}

QGraphicsView *ManualDesk::view() const
{
    return document()->findChild<QGraphicsView *>();
}

ReportText *ManualDesk::field(const char *id) const
{
    return qobject_cast<ReportText *>(report()->scene()->itemById(QLatin1String(id)));
}

ReportTable *ManualDesk::table() const
{
    return qobject_cast<ReportTable *>(report()->scene()->itemById(QStringLiteral("test_table")));
}

void ManualDesk::arrange(const QSize &size) const
{
    window.resize(size);
    window.move(20, 20);
    QTRY_COMPARE(window.size(), size);
    window.resizeDocks({dock("documentBrowser")}, {285}, Qt::Horizontal);
    QTest::qWait(100);
}

void ManualDesk::expand(const QString &folder) const
{
    QTRY_VERIFY(model->index(folder).isValid());
    tree->expand(model->index(folder));
    QTRY_VERIFY(model->rowCount(model->index(folder)) > 0);
    QTest::qWait(200);
}

void ManualDesk::select(const QString &path) const
{
    QTRY_VERIFY(model->index(path).isValid());
    Hands::click(tree, model->index(path));
}

void ManualDesk::open(const QString &path) const
{
    QVERIFY(window.openDocument(path));
    QTRY_VERIFY(document() && document()->filePath() == path);
}

void ManualDesk::fill(const char *id, const QString &text) const
{
    Hands::click(view(), field(id));
    paste(text);
    QCOMPARE(field(id)->plainText(), text);
}

void ManualDesk::fillColumn(int column, int row, const QStringList &texts) const
{
    Hands::click(view(), table()->cellAt(column, row));
    for (const QString &text : texts) {
        paste(text);
        Hands::press(&window, Qt::Key_Return);
    }
}

void ManualDesk::paste(const QString &text) const
{
    // Hands can type ASCII only.
    QGuiApplication::clipboard()->setText(text);
    Hands::press(&window, Qt::Key_V, Qt::ControlModifier);
}

void ManualDesk::leaveFields() const
{
    report()->setCurrent(false);
}

void ManualDesk::takeNextMenu(QWidget *over, const QString &name) const
{
    QTimer::singleShot(400, &window, [over, name] {
        QWidget *menu = QApplication::activePopupWidget();
        QVERIFY2(menu, qPrintable(name));
        if (over)
            ManualCamera::takeBoth(menu, over, name);
        else
            ManualCamera::take(menu, name);
        menu->close();
    });
}

void ManualDesk::rightClick(const QPoint &inViewport) const
{
    const QPoint place = view()->viewport()->mapTo(&window, inViewport);
    QTest::mouseMove(window.windowHandle(), place);
    QTest::mousePress(window.windowHandle(), Qt::RightButton, Qt::NoModifier, place);
    QTest::mouseRelease(window.windowHandle(), Qt::RightButton, Qt::NoModifier, place);
}

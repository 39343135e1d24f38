#include "app/document/AbstractDocument.h"
#include "browser/FindInFiles.h"
#include "browser/ProjectTreeView.h"
#include "tests/app/shell/Desk.h"
#include "tests/support/TestMain.h"

#include <QDockWidget>
#include <QGraphicsView>
#include <QToolBar>
#include <QToolButton>

/// The ways between the panels and the documents for somebody without a mouse.
class TestPaneKeys : public QObject
{
    Q_OBJECT

private slots:
    void init() { Desk::clear(); }
    void f6LeadsFromThePageAroundAllPanes();
    void shiftF6LeadsTheOtherWay();
    void withoutADocumentF6LeadsBetweenThePanels();
    void aPanelThatStandsBehindComesToTheFront();
    void thePanelsRememberWhoHadTheKeyboard();
    void theToolBarOfADiagramIsWorkedByKeys();
    void altLeadsToTheMenuBar();

private:
    static void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QTest::keyClick(QApplication::focusWidget(), key, modifiers);
    }
    /// Which pane has the keyboard, in a word.
    static QString pane(const Desk &desk)
    {
        const QWidget *focused = QApplication::focusWidget();
        for (const QWidget *at = focused; at; at = at->parentWidget()) {
            if (qobject_cast<const ProjectTreeView *>(at))
                return QStringLiteral("tree");
            if (qobject_cast<const FindInFiles *>(at))
                return QStringLiteral("search");
            if (qobject_cast<const QToolBar *>(at))
                return QStringLiteral("tool bar");
            if (at == desk.window->activeDocument())
                return QStringLiteral("document");
        }
        return focused ? focused->objectName() : QStringLiteral("nothing");
    }
};

void TestPaneKeys::f6LeadsFromThePageAroundAllPanes()
{
    const Desk desk;
    const AbstractDocument *report = desk.window->openDocument(Desk::addReport("Roof.kelatr"));
    QVERIFY(report);
    auto *view = report->findChild<QGraphicsView *>();
    view->setFocus();
    QTRY_COMPARE(pane(desk), QString("document"));
    QStringList seen;
    for (int i = 0; i < 4; ++i) {
        press(Qt::Key_F6);
        seen.append(pane(desk));
    }
    QCOMPARE(seen, (QStringList{"tree", "search", "tool bar", "document"}));
    QCOMPARE(QApplication::focusWidget(), view);
}

void TestPaneKeys::shiftF6LeadsTheOtherWay()
{
    const Desk desk;
    QVERIFY(desk.window->openDocument(Desk::addReport("Roof.kelatr")));
    desk.tree->setFocus();
    QStringList seen;
    for (int i = 0; i < 4; ++i) {
        press(Qt::Key_F6, Qt::ShiftModifier);
        seen.append(pane(desk));
    }
    QCOMPARE(seen, (QStringList{"document", "tool bar", "search", "tree"}));
}

void TestPaneKeys::withoutADocumentF6LeadsBetweenThePanels()
{
    const Desk desk;
    desk.tree->setFocus();
    QStringList seen;
    for (int i = 0; i < 3; ++i) {
        press(Qt::Key_F6);
        seen.append(pane(desk));
    }
    QCOMPARE(seen, (QStringList{"search", "tree", "search"}));
}

void TestPaneKeys::aPanelThatStandsBehindComesToTheFront()
{
    const Desk desk;
    desk.tree->setFocus();
    const auto *search = desk.window->findChild<QDockWidget *>("documentSearch");
    QVERIFY(search->visibleRegion().isEmpty());
    press(Qt::Key_F6);
    QTRY_VERIFY(!search->visibleRegion().isEmpty());
    QVERIFY(QApplication::focusWidget()->isVisible());
}

void TestPaneKeys::thePanelsRememberWhoHadTheKeyboard()
{
    const Desk desk;
    auto *search = desk.window->findChild<QDockWidget *>("documentSearch");
    search->raise();
    auto *name = search->findChild<QWidget *>("nameEdit");
    name->setFocus();
    press(Qt::Key_F6);
    QCOMPARE(pane(desk), QString("tree"));
    press(Qt::Key_F6);
    QCOMPARE(QApplication::focusWidget(), name);
}

void TestPaneKeys::theToolBarOfADiagramIsWorkedByKeys()
{
    const Desk desk;
    writeFile(Desk::path("Roof.kelid"), "<installation_diagram/>");
    const AbstractDocument *diagram = desk.window->openDocument(Desk::path("Roof.kelid"));
    QVERIFY(diagram);
    auto *wire = diagram->findChild<QAction *>("actionWire");
    desk.tree->setFocus();
    press(Qt::Key_F6);
    press(Qt::Key_F6);
    QCOMPARE(pane(desk), QString("tool bar"));
    const QWidget *button = diagram->findChild<QToolBar *>()->widgetForAction(wire);
    for (int i = 0; i < 20 && QApplication::focusWidget() != button; ++i)
        press(Qt::Key_Tab);
    QCOMPARE(QApplication::focusWidget(), button);
    press(Qt::Key_Space);
    QVERIFY(wire->isChecked());
}

void TestPaneKeys::altLeadsToTheMenuBar()
{
    const Desk desk;
    desk.tree->setFocus();
    QTest::keyPress(desk.tree, Qt::Key_Alt, Qt::AltModifier);
    QTest::keyRelease(desk.tree, Qt::Key_Alt, Qt::NoModifier);
    QMenuBar *bar = desk.window->menuBar();
    QCOMPARE(QApplication::focusWidget(), bar);
    press(Qt::Key_Right);
    press(Qt::Key_Down);
    auto *edit = desk.window->findChild<QMenu *>("menuEdit");
    QTRY_VERIFY(edit->isVisible());
    QTest::keyClick(edit, Qt::Key_Escape);
    QTRY_VERIFY(!edit->isVisible());
}

KELMAR_TEST_MAIN(TestPaneKeys)
#include "tst_panekeys.moc"

#include "app/document/AbstractDocument.h"
#include "app/shell/MdiWindow.h"
#include "res/Resources.h"
#include "tests/support/BoxWatcher.h"
#include "tests/support/TestMain.h"

#include <QAction>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QTabBar>

namespace {

/// A document that asks before it closes and tells what happened to it.
class Paper : public AbstractDocument
{
public:
    explicit Paper(const QString &path, QStringList *log = nullptr) : AbstractDocument(path), m_log(log)
    {
        setValid(true);
    }

    bool queryClose() override
    {
        note(isInFront() ? "asked" : "asked from behind");
        return askToSave("Save changes to " + fileName() + '?');
    }
    void save() override
    {
        note("saved");
        setModified(false);
    }

private:
    bool isInFront() const
    {
        const auto *sub = qobject_cast<QMdiSubWindow *>(parentWidget());
        return isVisible() && sub && sub->mdiArea()->activeSubWindow() == sub;
    }
    void note(const char *what)
    {
        if (m_log)
            m_log->append(fileName() + ' ' + what);
    }

    QStringList *m_log;
};

/// "one>two". Reads both documents, so that one that is gone is found out.
QString change(const AbstractDocument *from, const AbstractDocument *to)
{
    return (from ? from->fileName() : "none") + '>' + (to ? to->fileName() : "none");
}

/// The generic window in the shape that the main window gives it.
class Workspace : public MdiWindow
{
    Q_OBJECT

public:
    Workspace() : area(new QMdiArea(this)), menu(new QMenu("Window", this))
    {
        area->setViewMode(QMdiArea::TabbedView);
        area->setDocumentMode(true);
        setCentralWidget(area);
        setUp(area, menu);
        connect(this, &MdiWindow::activeDocumentChanged, this, &Workspace::noteChange);
        resize(700, 500);
    }

    Paper *add(const QString &name)
    {
        auto *paper = new Paper("/nowhere/" + name, &log);
        openDocument(paper);
        return paper;
    }
    QTabBar *tabs() const { return area->findChild<QTabBar *>(); }
    void resetWindowLayout() override { ++resets; }

    /// The entries as they stand when the user opens the menu.
    QList<QAction *> menuEntries()
    {
        emit menu->aboutToShow();
        return menu->actions();
    }
    QAction *entry(const QString &text)
    {
        for (QAction *action : menuEntries()) {
            if (action->text() == text)
                return action;
        }
        return nullptr;
    }
    QStringList openNames() const
    {
        QStringList names;
        for (const AbstractDocument *document : documents())
            names.append(document->fileName());
        return names;
    }

    QMdiArea *area;
    QMenu *menu;
    /// What the documents were asked and told.
    QStringList log;
    QStringList changes;
    int resets = 0;

private:
    void noteChange(const AbstractDocument *from, const AbstractDocument *to)
    {
        changes.append(change(from, to));
    }
};

void clickCloseButton(QTabBar *tabs, int index)
{
    QWidget *button = tabs->tabButton(index, QTabBar::RightSide);
    if (!button)
        button = tabs->tabButton(index, QTabBar::LeftSide);
    QVERIFY(button);
    QTest::mouseClick(button, Qt::LeftButton);
}

} // namespace

class TestMdiWindow : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { initResources(); }
    void init();
    void cleanup() { m_window.reset(); }

    void windowMenuHasItsFixedEntriesInOrder();
    void fixedEntriesHaveIconTipAndStandardKeys();
    void windowMenuWithoutDocumentsOffersTheResetOnly();
    void nextAndPreviousNeedTwoDocuments();
    void tenthDocumentInTheMenuHasNoAcceleratorMark();
    void menuChecksTheActiveDocument();
    void documentChosenInTheMenuComesToTheFront();
    void standardKeysGoToTheNextAndThePreviousDocument();
    void menuNamesAChangedDocumentWithItsMark();
    void resetInTheMenuReachesTheDerivedWindow();

    void openedDocumentIsActiveAndShownInATab();
    void documentOpenedInTheBackgroundIsTheActiveOneToo();
    void documentsAreListedInTheOrderOfTheirOpening();
    void activeDocumentFollowsTheTabClicked();
    void documentGoesWithItsTab();
    void documentThatIsNotOpenIsNeitherClosedNorActivated();

    void tilingHidesTheTabsAndMaximisingBringsThemBack();
    void cascadingHidesTheTabs();

    void closeButtonOfATabAsksTheQuestion();
    void closeInTheMenuAsksTheSameQuestion();
    void cancelledQuestionKeepsTheTab();
    void unchangedDocumentClosesWithoutAQuestion();
    void closingTheLastTabTellsTheDocumentThatWasActive();
    void closingATabTellsTheOneThatTakesItsPlace();
    void closingADocumentInTheBackgroundTakesJustThat();
    void activationsFormAChainWithoutADocumentThatIsGone();

    void emptyWindowClosesAtOnce();
    void closingTheWindowAsksFromTheLastDocumentToTheFirst();
    void eachDocumentIsInFrontWhenItAsks();
    void cancellingTheThirdOfFiveKeepsTheFirstThree();
    void savedDocumentsCloseWithTheWindow();

private:
    std::unique_ptr<Workspace> m_window;
};

void TestMdiWindow::init()
{
    m_window = std::make_unique<Workspace>();
    m_window->show();
    QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
}

void TestMdiWindow::windowMenuHasItsFixedEntriesInOrder()
{
    QStringList texts;
    for (const QAction *action : m_window->menuEntries())
        texts.append(action->isSeparator() ? "-" : action->text());
    const QStringList expected{"Cl&ose", "-",     "&Tile",     "&Cascade", "-", "&Reset Window Layout",
                               "-",      "Ne&xt", "Pre&vious", "-"};
    QCOMPARE(texts, expected);
    // Built afresh, not added to.
    QCOMPARE(m_window->menuEntries().size(), expected.size());
}

void TestMdiWindow::fixedEntriesHaveIconTipAndStandardKeys()
{
    const struct
    {
        const char *text;
        const char *tip;
        const char *icon;
        QKeySequence::StandardKey key;
    } rows[] = {
        {"Cl&ose", "Close the active window", "close", QKeySequence::UnknownKey},
        {"&Tile", "Tile the windows", "window_tile", QKeySequence::UnknownKey},
        {"&Cascade", "Cascade the windows", "window_cascade", QKeySequence::UnknownKey},
        {"&Reset Window Layout", "Restore the default Window layout", "redo", QKeySequence::UnknownKey},
        {"Ne&xt", "Move the focus to the next window", "window_next", QKeySequence::NextChild},
        {"Pre&vious", "Move the focus to the previous window", "window_prev", QKeySequence::PreviousChild},
    };
    for (const auto &row : rows) {
        const QAction *action = m_window->entry(row.text);
        QVERIFY2(action, row.text);
        QCOMPARE(action->statusTip(), QString(row.tip));
        QCOMPARE(action->shortcuts(), QKeySequence::keyBindings(row.key));
        const QImage icon = action->icon().pixmap(16).toImage();
        QVERIFY2(!icon.isNull(), row.text);
        QCOMPARE(icon, QIcon(QString(":res/toolButtons/%1.png").arg(row.icon)).pixmap(16).toImage());
    }
}

void TestMdiWindow::windowMenuWithoutDocumentsOffersTheResetOnly()
{
    QStringList enabled;
    for (const QAction *action : m_window->menuEntries()) {
        if (!action->isSeparator() && action->isEnabled())
            enabled.append(action->text());
    }
    QCOMPARE(enabled, QStringList{"&Reset Window Layout"});
}

void TestMdiWindow::nextAndPreviousNeedTwoDocuments()
{
    m_window->add("one");
    for (const char *text : {"Cl&ose", "&Tile", "&Cascade"})
        QVERIFY2(m_window->entry(text)->isEnabled(), text);
    QVERIFY(!m_window->entry("Ne&xt")->isEnabled());
    QVERIFY(!m_window->entry("Pre&vious")->isEnabled());
    m_window->add("two");
    QVERIFY(m_window->entry("Ne&xt")->isEnabled());
    QVERIFY(m_window->entry("Pre&vious")->isEnabled());
}

void TestMdiWindow::tenthDocumentInTheMenuHasNoAcceleratorMark()
{
    for (int i = 1; i <= 10; ++i)
        m_window->add(QString("paper %1").arg(i));
    const QList<QAction *> entries = m_window->menuEntries().mid(10);
    QCOMPARE(entries.size(), 10);
    for (int i = 0; i < 9; ++i)
        QCOMPARE(entries.at(i)->text(), QString("&%1 paper %1").arg(i + 1));
    QCOMPARE(entries.at(9)->text(), QString("10 paper 10"));
}

void TestMdiWindow::menuChecksTheActiveDocument()
{
    m_window->add("one");
    AbstractDocument *second = m_window->add("two");
    m_window->add("three");
    m_window->setActiveDocument(second);
    QVector<bool> checked;
    for (const QAction *action : m_window->menuEntries().mid(10)) {
        QVERIFY(action->isCheckable());
        checked.append(action->isChecked());
    }
    QCOMPARE(checked, (QVector<bool>{false, true, false}));
}

void TestMdiWindow::documentChosenInTheMenuComesToTheFront()
{
    AbstractDocument *first = m_window->add("one");
    m_window->add("two");
    m_window->entry("&1 one")->trigger();
    QCOMPARE(m_window->activeDocument(), first);
    QCOMPARE(m_window->tabs()->currentIndex(), 0);
}

void TestMdiWindow::standardKeysGoToTheNextAndThePreviousDocument()
{
    AbstractDocument *first = m_window->add("one");
    AbstractDocument *second = m_window->add("two");
    AbstractDocument *third = m_window->add("three");
    m_window->setActiveDocument(first);
    m_window->entry("Ne&xt")->trigger();
    QCOMPARE(m_window->activeDocument(), second);
    m_window->entry("Pre&vious")->trigger();
    QCOMPARE(m_window->activeDocument(), first);
    m_window->entry("Pre&vious")->trigger();
    QCOMPARE(m_window->activeDocument(), third);
    const QKeySequence next = QKeySequence::keyBindings(QKeySequence::NextChild).first();
    QTest::keySequence(m_window.get(), next);
    QTRY_COMPARE(m_window->activeDocument(), first);
}

void TestMdiWindow::menuNamesAChangedDocumentWithItsMark()
{
    m_window->add("one")->setModified(true);
    QVERIFY(m_window->entry("&1 one *"));
    QCOMPARE(m_window->tabs()->tabText(0), QString("one *"));
}

void TestMdiWindow::resetInTheMenuReachesTheDerivedWindow()
{
    m_window->entry("&Reset Window Layout")->trigger();
    QCOMPARE(m_window->resets, 1);
}

void TestMdiWindow::openedDocumentIsActiveAndShownInATab()
{
    const AbstractDocument *document = m_window->add("one");
    QCOMPARE(m_window->activeDocument(), document);
    QCOMPARE(m_window->changes, QStringList{"none>one"});
    QVERIFY(m_window->tabs()->isVisible());
    QVERIFY(m_window->tabs()->tabsClosable());
    QVERIFY(m_window->tabs()->isMovable());
    QVERIFY(m_window->area->activeSubWindow()->isMaximized());
    QCOMPARE(m_window->tabs()->tabText(0), QString("one"));
}

void TestMdiWindow::documentOpenedInTheBackgroundIsTheActiveOneToo()
{
    // The whole program is in the background.
    m_window->hide();
    QTRY_COMPARE(QGuiApplication::applicationState(), Qt::ApplicationInactive);
    m_window->setAttribute(Qt::WA_ShowWithoutActivating);
    const AbstractDocument *first = m_window->add("one");
    QCOMPARE(m_window->activeDocument(), first);
    const AbstractDocument *second = m_window->add("two");
    QCOMPARE(m_window->activeDocument(), second);
    m_window->show();
    m_window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
    QCOMPARE(m_window->activeDocument(), second);
    QCOMPARE(m_window->changes.last().section('>', 1), QString("two"));
}

void TestMdiWindow::documentsAreListedInTheOrderOfTheirOpening()
{
    AbstractDocument *first = m_window->add("one");
    m_window->add("two");
    m_window->add("three");
    m_window->setActiveDocument(first);
    QCOMPARE(m_window->openNames(), (QStringList{"one", "two", "three"}));
}

void TestMdiWindow::activeDocumentFollowsTheTabClicked()
{
    AbstractDocument *first = m_window->add("one");
    m_window->add("two");
    m_window->changes.clear();
    QTest::mouseClick(m_window->tabs(), Qt::LeftButton, Qt::NoModifier,
                      m_window->tabs()->tabRect(0).center());
    QCOMPARE(m_window->activeDocument(), first);
    QCOMPARE(m_window->changes, QStringList{"two>one"});
}

void TestMdiWindow::documentGoesWithItsTab()
{
    const QPointer<AbstractDocument> document = m_window->add("one");
    const QPointer<QMdiSubWindow> sub = m_window->area->activeSubWindow();
    m_window->closeDocument(document);
    QTRY_VERIFY(!document);
    QVERIFY(!sub);
    QVERIFY(m_window->documents().isEmpty());
    QCOMPARE(m_window->tabs()->count(), 0);
}

void TestMdiWindow::documentThatIsNotOpenIsNeitherClosedNorActivated()
{
    AbstractDocument *open = m_window->add("one");
    Paper stranger("/nowhere/stranger", &m_window->log);
    stranger.setModified(true);
    m_window->setActiveDocument(&stranger);
    m_window->closeDocument(&stranger);
    m_window->closeDocument(nullptr);
    m_window->closeTab(0);
    QCOMPARE(m_window->activeDocument(), open);
    QVERIFY(m_window->log.isEmpty());
}

void TestMdiWindow::tilingHidesTheTabsAndMaximisingBringsThemBack()
{
    m_window->add("one");
    m_window->add("two");
    m_window->entry("&Tile")->trigger();
    QTRY_VERIFY(!m_window->tabs()->isVisible());
    const QList<QMdiSubWindow *> subWindows = m_window->area->subWindowList();
    for (const QMdiSubWindow *sub : subWindows)
        QVERIFY(!sub->isMaximized());
    QVERIFY(!subWindows.at(0)->geometry().intersects(subWindows.at(1)->geometry()));
    subWindows.at(0)->showMaximized();
    QTRY_VERIFY(m_window->tabs()->isVisible());
}

void TestMdiWindow::cascadingHidesTheTabs()
{
    m_window->add("one");
    m_window->add("two");
    m_window->entry("&Cascade")->trigger();
    QTRY_VERIFY(!m_window->tabs()->isVisible());
    const QList<QMdiSubWindow *> subWindows = m_window->area->subWindowList();
    QVERIFY(subWindows.at(0)->geometry().intersects(subWindows.at(1)->geometry()));
    QVERIFY(subWindows.at(0)->pos() != subWindows.at(1)->pos());
}

void TestMdiWindow::closeButtonOfATabAsksTheQuestion()
{
    BoxWatcher watcher;
    watcher.expect("Save changes to one?", QMessageBox::Yes);
    const QPointer<Paper> paper = m_window->add("one");
    paper->setModified(true);
    clickCloseButton(m_window->tabs(), 0);
    QTRY_VERIFY(!paper);
    QCOMPARE(m_window->log, (QStringList{"one asked", "one saved"}));
    QCOMPARE(watcher.boxes().size(), 1);
    QCOMPARE(watcher.boxes().at(0).icon, QMessageBox::Information);
    QCOMPARE(watcher.boxes().at(0).buttons, QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel);
}

void TestMdiWindow::closeInTheMenuAsksTheSameQuestion()
{
    BoxWatcher watcher;
    watcher.expect("Save changes to one?", QMessageBox::No);
    const QPointer<Paper> paper = m_window->add("one");
    paper->setModified(true);
    m_window->entry("Cl&ose")->trigger();
    QTRY_VERIFY(!paper);
    QCOMPARE(m_window->log, QStringList{"one asked"});
    QCOMPARE(watcher.texts(), QStringList{"Save changes to one?"});
}

void TestMdiWindow::cancelledQuestionKeepsTheTab()
{
    BoxWatcher watcher;
    watcher.expect("Save changes to one?", QMessageBox::Cancel);
    watcher.expect("Save changes to one?", QMessageBox::Cancel);
    const QPointer<Paper> paper = m_window->add("one");
    paper->setModified(true);
    clickCloseButton(m_window->tabs(), 0);
    m_window->closeActiveDocument();
    QTest::qWait(50);
    QVERIFY(paper);
    QVERIFY(paper->isVisible());
    QCOMPARE(m_window->activeDocument(), paper.data());
    QCOMPARE(m_window->tabs()->count(), 1);
}

void TestMdiWindow::unchangedDocumentClosesWithoutAQuestion()
{
    BoxWatcher watcher;
    const QPointer<Paper> paper = m_window->add("one");
    clickCloseButton(m_window->tabs(), 0);
    QTRY_VERIFY(!paper);
    QVERIFY(watcher.boxes().isEmpty());
}

void TestMdiWindow::closingTheLastTabTellsTheDocumentThatWasActive()
{
    const QPointer<AbstractDocument> document = m_window->add("one");
    m_window->changes.clear();
    clickCloseButton(m_window->tabs(), 0);
    QTRY_VERIFY(!document);
    QCOMPARE(m_window->changes, QStringList{"one>none"});
}

void TestMdiWindow::closingATabTellsTheOneThatTakesItsPlace()
{
    AbstractDocument *first = m_window->add("one");
    m_window->add("two");
    m_window->changes.clear();
    clickCloseButton(m_window->tabs(), 1);
    QTRY_COMPARE(m_window->documents().size(), 1);
    QCOMPARE(m_window->activeDocument(), first);
    QCOMPARE(m_window->changes, QStringList{"two>one"});
}

void TestMdiWindow::closingADocumentInTheBackgroundTakesJustThat()
{
    const QPointer<AbstractDocument> first = m_window->add("one");
    m_window->add("two");
    m_window->closeDocument(first);
    QTRY_VERIFY(!first);
    QCOMPARE(m_window->openNames(), QStringList{"two"});
    QCOMPARE(m_window->activeDocument()->fileName(), QString("two"));
}

void TestMdiWindow::activationsFormAChainWithoutADocumentThatIsGone()
{
    QPointer<AbstractDocument> last;
    connect(m_window.get(), &MdiWindow::activeDocumentChanged, this,
            [&last](AbstractDocument *from, AbstractDocument *to) {
                QCOMPARE(from, last.data());
                last = to;
            });
    for (const char *name : {"one", "two", "three"})
        m_window->add(name);
    m_window->closeDocument(m_window->documents().at(1));
    QTRY_COMPARE(m_window->documents().size(), 2);
    m_window->closeActiveDocument();
    QTRY_COMPARE(m_window->documents().size(), 1);
    m_window->closeActiveDocument();
    QTRY_COMPARE(m_window->documents().size(), 0);
    m_window->add("four");
    QCOMPARE(m_window->changes.first(), QString("none>one"));
    QCOMPARE(m_window->changes.last(), QString("none>four"));
}

void TestMdiWindow::emptyWindowClosesAtOnce()
{
    QVERIFY(m_window->close());
    QVERIFY(!m_window->isVisible());
}

void TestMdiWindow::closingTheWindowAsksFromTheLastDocumentToTheFirst()
{
    for (const char *name : {"one", "two", "three"})
        m_window->add(name);
    QVERIFY(m_window->close());
    QCOMPARE(m_window->log, (QStringList{"three asked", "two asked", "one asked"}));
    QTRY_VERIFY(m_window->documents().isEmpty());
}

void TestMdiWindow::eachDocumentIsInFrontWhenItAsks()
{
    for (const char *name : {"one", "two", "three"})
        m_window->add(name)->setModified(true);
    m_window->setActiveDocument(m_window->documents().first());
    BoxWatcher watcher;
    for (int i = 0; i < 3; ++i)
        watcher.expect("Save changes to", QMessageBox::No);
    QVERIFY(m_window->close());
    QCOMPARE(watcher.texts(),
             (QStringList{"Save changes to three?", "Save changes to two?", "Save changes to one?"}));
    QCOMPARE(m_window->log, (QStringList{"three asked", "two asked", "one asked"}));
}

void TestMdiWindow::cancellingTheThirdOfFiveKeepsTheFirstThree()
{
    for (const char *name : {"one", "two", "three", "four", "five"})
        m_window->add(name);
    m_window->documents().at(2)->setModified(true);
    BoxWatcher watcher;
    watcher.expect("Save changes to three?", QMessageBox::Cancel);
    QVERIFY(!m_window->close());
    QVERIFY(m_window->isVisible());
    QTRY_COMPARE(m_window->openNames(), (QStringList{"one", "two", "three"}));
    QCOMPARE(m_window->activeDocument()->fileName(), QString("three"));
    QCOMPARE(m_window->log, (QStringList{"five asked", "four asked", "three asked"}));
}

void TestMdiWindow::savedDocumentsCloseWithTheWindow()
{
    m_window->add("one")->setModified(true);
    BoxWatcher watcher;
    watcher.expect("Save changes to one?", QMessageBox::Yes);
    QVERIFY(m_window->close());
    QCOMPARE(m_window->log, (QStringList{"one asked", "one saved"}));
}

KELMAR_TEST_MAIN(TestMdiWindow)
#include "tst_mdiwindow.moc"

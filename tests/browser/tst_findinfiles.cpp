#include "app/core/Folders.h"
#include "tests/browser/SearchPanel.h"
#include "tests/support/BoxWatcher.h"
#include "tests/support/TestMain.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>

namespace {

const QString noResults = QStringLiteral("Search is complete. There are no results to display.");

enum DateKind
{
    Created,
    Modified,
    Accessed
};

enum SizeKind
{
    GreaterThan,
    LessThan
};

void setTime(const QString &path, const QDateTime &time, QFileDevice::FileTime kind)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadWrite));
    QVERIFY(file.setFileTime(time, kind));
}

} // namespace

/// What is asked for and what is found; how the walk goes is tested beside it.
class TestFindInFiles : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void panelStartsWithTheNameGroupOnly();
    void panelOffersItsChoices();

    void allGroupsUncheckedListTheWholeTreeWithItsFolders();
    void emptyNameListsTheWholeTree();
    void nameIsAWildcardPatternOpenAtBothEnds_data();
    void nameIsAWildcardPatternOpenAtBothEnds();
    void nameOfAnUncheckedGroupDoesNotCount();
    void nameIsThatOfTheEntryNotOfItsPath();

    void datesAreInclusiveAtBothEnds_data();
    void datesAreInclusiveAtBothEnds();
    void timeOfTheDayDoesNotCount();
    void accessedDateIsThatOfTheLastReading();
    void createdDateIsTodayForANewFile();
    void turnedAroundDatesFindNothing();

    void sizeLimitItselfPassesBothWays();
    void sizeLimitOfTwoGigabytesTurnsNegative_data();
    void sizeLimitOfTwoGigabytesTurnsNegative();

    void phraseIsFoundInAReportWhateverItsCase();
    void phraseWithItsOwnStarsIsTakenAsItIs();
    void phraseLeavesChecklistsAndOtherFilesOut();
    void emptyPhraseIsNoCriterion();
    void phraseOfAnUncheckedGroupDoesNotCount();
    void phraseWithWildcardCharactersIsAPattern();
    void damagedReportsAreFoundByNameAndNeverByPhrase();

    void allCriteriaMustHold();
    void invalidNamePatternFindsNothing();
    void searchWithoutAFindShowsOneRow();
    void rootInForceIsSearched();

private:
    std::unique_ptr<SearchPanel> m_panel;
};

void TestFindInFiles::init()
{
    SearchPanel::clear();
    m_panel = std::make_unique<SearchPanel>();
}

void TestFindInFiles::cleanup()
{
    m_panel.reset();
}

void TestFindInFiles::panelStartsWithTheNameGroupOnly()
{
    const struct
    {
        const char *name;
        const char *title;
        bool checked;
    } groups[] = {
        {"fileGroup", "File search", true},
        {"phraseGroup", "Word / Phrase Search", false},
        {"dateGroup", "Date", false},
        {"sizeGroup", "File Size", false},
    };
    for (const auto &row : groups) {
        const auto *group = m_panel->find<QGroupBox>(row.name);
        QCOMPARE(group->title(), QString(row.title));
        QVERIFY2(group->isCheckable(), row.name);
        QVERIFY2(group->isChecked() == row.checked, row.name);
    }
    QCOMPARE(m_panel->windowTitle(), QString("Find in Files"));
    QVERIFY(m_panel->searchButton()->isVisible());
    QVERIFY(m_panel->searchButton()->isDefault());
    QVERIFY(!m_panel->stopButton()->isVisible());
    QVERIFY(m_panel->model()->rowCount() == 0);
}

void TestFindInFiles::panelOffersItsChoices()
{
    const auto *title = m_panel->find<QLabel>("titleLabel");
    QCOMPARE(title->text(), QString("Search by any or all of the criteria below."));
    QVERIFY(title->font().bold());
    QCOMPARE(m_panel->find<QLabel>("nameLabel")->text(), QString("All or part of the file name:"));
    QCOMPARE(m_panel->find<QLabel>("phraseLabel")->text(), QString("A word or phrase in the reports:"));
    for (const char *name : {"nameCaseSensitive", "phraseCaseSensitive"}) {
        QCOMPARE(m_panel->find<QCheckBox>(name)->text(), QString("Case sensitive"));
        QVERIFY(!m_panel->find<QCheckBox>(name)->isChecked());
    }
    const auto choices = [this](const char *name) {
        QStringList texts;
        const auto *box = m_panel->find<QComboBox>(name);
        for (int i = 0; i < box->count(); ++i)
            texts.append(QString("%1 %2").arg(box->itemData(i).toInt()).arg(box->itemText(i)));
        return texts;
    };
    QCOMPARE(choices("dateKind"), (QStringList{"0 Created Date", "1 Modified Date", "2 Accessed Date"}));
    QCOMPARE(m_panel->find<QComboBox>("dateKind")->currentIndex(), 1);
    QCOMPARE(choices("sizeKind"), (QStringList{"0 greater than", "1 less than"}));
    for (const char *name : {"dateFrom", "dateTo"}) {
        QVERIFY(m_panel->find<QDateEdit>(name)->calendarPopup());
        QCOMPARE(m_panel->find<QDateEdit>(name)->date(), QDate::currentDate());
    }
    const auto *limit = m_panel->find<QSpinBox>("sizeLimit");
    QCOMPARE(limit->suffix(), QString(" KB"));
    QCOMPARE(limit->maximum(), 0x3FFFFF);
    QCOMPARE(limit->singleStep(), 10);
}

void TestFindInFiles::allGroupsUncheckedListTheWholeTreeWithItsFolders()
{
    SearchPanel::add("a.kelir");
    SearchPanel::add("Job/b.txt");
    SearchPanel::add("Job/Deeper/c");
    QVERIFY(QDir().mkpath(SearchPanel::path("Empty")));
    m_panel->check("fileGroup", false);
    QCOMPARE(m_panel->found(),
             (QStringList{"Empty", "Job", "Job/Deeper", "Job/Deeper/c", "Job/b.txt", "a.kelir"}));
}

void TestFindInFiles::emptyNameListsTheWholeTree()
{
    SearchPanel::add("Job/b.txt");
    m_panel->setName(QString());
    QCOMPARE(m_panel->found(), (QStringList{"Job", "Job/b.txt"}));
}

void TestFindInFiles::nameIsAWildcardPatternOpenAtBothEnds_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("caseSensitive");
    QTest::addColumn<QStringList>("names");
    QTest::newRow("part of the name") << "port" << false << QStringList{"Report 1.kelatr", "report 2.kelir"};
    QTest::newRow("the case counts") << "Report" << true << QStringList{"Report 1.kelatr"};
    QTest::newRow("suffix") << "*.kelir" << false
                            << QStringList{"report 2.kelir", "site.kelir", "site.kelir.bak"};
    QTest::newRow("star at the end") << "site*" << false << QStringList{"site.kelir", "site.kelir.bak"};
    QTest::newRow("star in the middle") << "rep*1" << false << QStringList{"Report 1.kelatr"};
    QTest::newRow("question mark") << "report ?." << false
                                   << QStringList{"Report 1.kelatr", "report 2.kelir"};
    QTest::newRow("set") << "t [2-9]" << false << QStringList{"report 2.kelir"};
    QTest::newRow("dots are dots") << "e.k" << false << QStringList{"site.kelir", "site.kelir.bak"};
    QTest::newRow("star alone") << "*" << false
                                << QStringList{"Report 1.kelatr", "report 2.kelir", "site.kelir",
                                               "site.kelir.bak"};
}

void TestFindInFiles::nameIsAWildcardPatternOpenAtBothEnds()
{
    for (const char *name : {"Report 1.kelatr", "report 2.kelir", "site.kelir", "site.kelir.bak"})
        SearchPanel::add(name);
    QFETCH(QString, text);
    QFETCH(bool, caseSensitive);
    m_panel->setName(text, caseSensitive);
    QTEST(m_panel->found(), "names");
}

void TestFindInFiles::nameOfAnUncheckedGroupDoesNotCount()
{
    SearchPanel::add("a.kelir");
    m_panel->setName("nothing like this", true);
    m_panel->check("fileGroup", false);
    QCOMPARE(m_panel->found(), QStringList{"a.kelir"});
}

void TestFindInFiles::nameIsThatOfTheEntryNotOfItsPath()
{
    SearchPanel::add("Roof/a.kelir");
    SearchPanel::add("Barn/roof.kelir");
    m_panel->setName("roof");
    QCOMPARE(m_panel->found(), (QStringList{"Barn/roof.kelir", "Roof"}));
}

void TestFindInFiles::datesAreInclusiveAtBothEnds_data()
{
    QTest::addColumn<QDate>("from");
    QTest::addColumn<QDate>("to");
    QTest::addColumn<QStringList>("names");
    const QDate day(2016, 5, 8);
    const QString before = "7.txt";
    const QString on = "8.txt";
    const QString after = "9.txt";
    QTest::newRow("the day") << day << day << QStringList{on};
    QTest::newRow("from the day on") << day << day.addDays(1) << QStringList{on, after};
    QTest::newRow("up to the day") << day.addDays(-1) << day << QStringList{before, on};
    QTest::newRow("days without files") << day.addDays(2) << day.addDays(9) << QStringList{noResults};
}

void TestFindInFiles::datesAreInclusiveAtBothEnds()
{
    for (int day : {7, 8, 9})
        setTime(SearchPanel::add(QString("%1.txt").arg(day)), QDateTime({2016, 5, day}, {12, 0}),
                QFileDevice::FileModificationTime);
    QFETCH(QDate, from);
    QFETCH(QDate, to);
    m_panel->setDates(Modified, from, to);
    QTEST(m_panel->found(), "names");
}

void TestFindInFiles::timeOfTheDayDoesNotCount()
{
    setTime(SearchPanel::add("early.txt"), QDateTime({2016, 5, 8}, {0, 0}),
            QFileDevice::FileModificationTime);
    setTime(SearchPanel::add("late.txt"), QDateTime({2016, 5, 8}, {23, 59, 59}),
            QFileDevice::FileModificationTime);
    m_panel->setDates(Modified, {2016, 5, 8}, {2016, 5, 8});
    QCOMPARE(m_panel->found(), (QStringList{"early.txt", "late.txt"}));
}

void TestFindInFiles::accessedDateIsThatOfTheLastReading()
{
    const QString path = SearchPanel::add("read.txt");
    setTime(path, QDateTime({2015, 1, 2}, {12, 0}), QFileDevice::FileModificationTime);
    setTime(path, QDateTime({2016, 3, 4}, {12, 0}), QFileDevice::FileAccessTime);
    m_panel->setDates(Accessed, {2016, 3, 4}, {2016, 3, 4});
    QCOMPARE(m_panel->found(), QStringList{"read.txt"});
    m_panel->setDates(Accessed, {2015, 1, 2}, {2015, 1, 2});
    QCOMPARE(m_panel->found(), QStringList{noResults});
}

void TestFindInFiles::createdDateIsTodayForANewFile()
{
    const QDate today = QDate::currentDate();
    setTime(SearchPanel::add("new.txt"), QDateTime({2015, 1, 2}, {12, 0}), QFileDevice::FileModificationTime);
    m_panel->setDates(Created, today, today.addDays(1));
    QCOMPARE(m_panel->found(), QStringList{"new.txt"});
    m_panel->setDates(Modified, today, today.addDays(1));
    QCOMPARE(m_panel->found(), QStringList{noResults});
}

void TestFindInFiles::turnedAroundDatesFindNothing()
{
    setTime(SearchPanel::add("8.txt"), QDateTime({2016, 5, 8}, {12, 0}), QFileDevice::FileModificationTime);
    m_panel->setDates(Modified, {2016, 5, 9}, {2016, 5, 7});
    QCOMPARE(m_panel->found(), QStringList{noResults});
}

void TestFindInFiles::sizeLimitItselfPassesBothWays()
{
    SearchPanel::add("below.txt", QByteArray(10239, 'x'));
    SearchPanel::add("exact.txt", QByteArray(10240, 'x'));
    SearchPanel::add("above.txt", QByteArray(10241, 'x'));
    m_panel->setSize(GreaterThan, 10);
    QCOMPARE(m_panel->found(), (QStringList{"above.txt", "exact.txt"}));
    m_panel->setSize(LessThan, 10);
    QCOMPARE(m_panel->found(), (QStringList{"below.txt", "exact.txt"}));
}

void TestFindInFiles::sizeLimitOfTwoGigabytesTurnsNegative_data()
{
    QTest::addColumn<int>("kilobytes");
    QTest::addColumn<bool>("negative");
    QTest::newRow("below") << 2097151 << false;
    QTest::newRow("at it") << 2097152 << true;
    QTest::newRow("the largest") << 4194303 << true;
}

void TestFindInFiles::sizeLimitOfTwoGigabytesTurnsNegative()
{
    SearchPanel::add("small.txt");
    QFETCH(int, kilobytes);
    QFETCH(bool, negative);
    m_panel->setSize(GreaterThan, kilobytes);
    QCOMPARE(m_panel->found(), QStringList{negative ? QString("small.txt") : noResults});
    m_panel->setSize(LessThan, kilobytes);
    QCOMPARE(m_panel->found(), QStringList{negative ? noResults : QString("small.txt")});
}

void TestFindInFiles::phraseIsFoundInAReportWhateverItsCase()
{
    SearchPanel::addReport("Job/a.kelir", "The second PV String is loose");
    SearchPanel::addReport("Job/b.kelatr", "pv string");
    SearchPanel::addReport("c.kelvc", "PV strength");
    m_panel->setPhrase("pv string");
    QCOMPARE(m_panel->found(), (QStringList{"Job/a.kelir", "Job/b.kelatr"}));
    m_panel->setPhrase("pv string", true);
    QCOMPARE(m_panel->found(), QStringList{"Job/b.kelatr"});
}

void TestFindInFiles::phraseWithItsOwnStarsIsTakenAsItIs()
{
    SearchPanel::addReport("a.kelir", "earth");
    SearchPanel::addReport("b.kelir", "the earth is");
    for (const char *phrase : {"*earth", "earth*", "*earth*", "e*h"}) {
        m_panel->setPhrase(phrase);
        QCOMPARE(m_panel->found(), (QStringList{"a.kelir", "b.kelir"}));
    }
    m_panel->setPhrase("*");
    QCOMPARE(m_panel->found(), (QStringList{"a.kelir", "b.kelir"}));
}

void TestFindInFiles::phraseLeavesChecklistsAndOtherFilesOut()
{
    SearchPanel::addReport("a.kelchk", "earth");
    SearchPanel::addReport("b.kelreport", "earth");
    SearchPanel::add("c.txt", "earth");
    QVERIFY(QDir().mkpath(SearchPanel::path("earth")));
    m_panel->setPhrase("earth");
    QCOMPARE(m_panel->found(), QStringList{noResults});
}

void TestFindInFiles::emptyPhraseIsNoCriterion()
{
    SearchPanel::addReport("a.kelchk", "earth");
    m_panel->setPhrase(QString());
    QCOMPARE(m_panel->found(), QStringList{"a.kelchk"});
}

void TestFindInFiles::phraseOfAnUncheckedGroupDoesNotCount()
{
    SearchPanel::addReport("a.kelir", "earth");
    m_panel->setPhrase("water");
    m_panel->check("phraseGroup", false);
    QCOMPARE(m_panel->found(), QStringList{"a.kelir"});
}

void TestFindInFiles::phraseWithWildcardCharactersIsAPattern()
{
    SearchPanel::addReport("a.kelir", "is it loose?");
    SearchPanel::addReport("b.kelir", "it is loose.");
    SearchPanel::addReport("c.kelir", "[loose]");
    m_panel->setPhrase("loose?");
    QCOMPARE(m_panel->found(), (QStringList{"a.kelir", "b.kelir", "c.kelir"}));
    m_panel->setPhrase("loose[?]");
    QCOMPARE(m_panel->found(), QStringList{"a.kelir"});
    m_panel->setPhrase("[loose");
    QCOMPARE(m_panel->found(), QStringList{noResults});
    m_panel->setPhrase("is * loose");
    QCOMPARE(m_panel->found(), QStringList{"a.kelir"});
}

void TestFindInFiles::damagedReportsAreFoundByNameAndNeverByPhrase()
{
    const QByteArray whole = readFile(SearchPanel::addReport("whole.kelir", "earth"));
    SearchPanel::add("cut.kelir", whole.left(whole.size() - 9));
    SearchPanel::add("empty.kelir", QByteArray());
    SearchPanel::add("text.kelir", "earth");
    BoxWatcher watcher;
    QCOMPARE(m_panel->found(), (QStringList{"cut.kelir", "empty.kelir", "text.kelir", "whole.kelir"}));
    m_panel->setPhrase("earth");
    QCOMPARE(m_panel->found(), QStringList{"whole.kelir"});
    QCOMPARE(watcher.boxes().size(), 0);
}

void TestFindInFiles::allCriteriaMustHold()
{
    const QDateTime day({2016, 5, 8}, {12, 0});
    const struct
    {
        const char *name;
        const char *text;
        QDateTime time;
    } reports[] = {
        {"roof.kelir", "earth", day},
        {"barn.kelir", "earth", day},
        {"roof 2.kelir", "water", day},
        {"roof 3.kelir", "earth", day.addDays(3)},
    };
    for (const auto &report : reports)
        setTime(SearchPanel::addReport(report.name, report.text), report.time,
                QFileDevice::FileModificationTime);
    m_panel->setName("roof");
    m_panel->setPhrase("earth");
    m_panel->setDates(Modified, day.date(), day.date());
    m_panel->setSize(LessThan, 1);
    QCOMPARE(m_panel->found(), QStringList{"roof.kelir"});
    m_panel->setSize(GreaterThan, 1);
    QCOMPARE(m_panel->found(), QStringList{noResults});
}

void TestFindInFiles::invalidNamePatternFindsNothing()
{
    SearchPanel::add("a[b.txt");
    m_panel->setName("a[b");
    QCOMPARE(m_panel->found(), QStringList{noResults});
}

void TestFindInFiles::searchWithoutAFindShowsOneRow()
{
    SearchPanel::add("a.kelir");
    m_panel->setName("no such name");
    QCOMPARE(m_panel->found(), QStringList{noResults});
    for (int column = 0; column < 3; ++column) {
        const QModelIndex index = m_panel->model()->index(0, column);
        QVERIFY(!index.data(Qt::DecorationRole).isValid());
        QVERIFY(column == 0 || !index.data().isValid());
    }
    m_panel->setName(QString());
    QCOMPARE(m_panel->found(), QStringList{"a.kelir"});
}

void TestFindInFiles::rootInForceIsSearched()
{
    SearchPanel::add("a.kelir");
    QCOMPARE(m_panel->found(), QStringList{"a.kelir"});
    const QString other = TestHome::instance()->path("other root");
    writeFile(other + "/Job/b.kelir", "x");
    QVERIFY(Folders::instance()->setProjectsRoot(other));
    QCOMPARE(m_panel->found(), (QStringList{"Job", "Job/b.kelir"}));
}

KELMAR_TEST_MAIN(TestFindInFiles)
#include "tst_findinfiles.moc"

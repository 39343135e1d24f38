#include "app/core/Identity.h"
#include "app/document/AbstractDocument.h"
#include "app/shell/MainWindow.h"
#include "browser/SearchResultsDocument.h"
#include "report/file/ReportFile.h"
#include "tests/support/HiddenFile.h"
#include "tests/support/Patience.h"
#include "tests/support/TestHome.h"
#include "tests/whole/Hands.h"
#include "tests/whole/IndependentSearch.h"
#include "tests/whole/WholeProgram.h"

#include <QtTest>
#include <QtWidgets>

using IndependentSearch::Entry;

namespace {

constexpr int files = 10000;
constexpr int filesPerFolder = 50;
/// Among ten files there is one report.
constexpr int reportShare = 10;
constexpr int reportsToDamage = 40;

const QDate surveyDay(2016, 5, 8);

bool isOfTheSurvey(const Entry &entry)
{
    return QDateTime::fromSecsSinceEpoch(entry.modified).date() == surveyDay;
}

QByteArray reportText(int number)
{
    const QByteArray remark = number % 30 == 0   ? "The PV String is loose"
                              : number % 20 == 0 ? "pv  string"
                                                 : "Nothing to remark";
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<document>\n  <page id=\"PV String\">\n"
           "    <text id=\"remarks\">" +
           remark + "</text>\n  </page>\n</document>\n";
}

QString nameOf(int number)
{
    static const char *const suffixes[] = {"kelir", "kelatr", "kelvc", "kelchk"};
    const QString folder = QStringLiteral("Area %1/Job %2/").arg(number / 1000).arg(number / filesPerFolder);
    if (number % reportShare != 0)
        return folder + QStringLiteral("%1 %2.jpg").arg(number % 3 == 0 ? "Roof" : "Barn").arg(number);
    return folder + QStringLiteral("%1 %2.%3")
                        .arg(number % 4 == 0 ? "roof" : "barn")
                        .arg(number)
                        .arg(QLatin1String(suffixes[number / reportShare % 4]));
}

} // namespace

/// Searching a large tree from the whole program's window, against a walk that shares no code with it.
class TestWholeSearch : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void everySearchFindsWhatAnIndependentWalkFinds();

private:
    void makeTree() const;
    void prepareSettings() const;
    void work(MainWindow &window);
    void findByName();
    void findByDate();
    void findBySize();
    void findByPhrase();
    void findByAll();
    void stopHalfway();
    void openAFoundReport(MainWindow &window);

    template <typename Widget> Widget *find(const char *name) const
    {
        return m_panel->findChild<Widget *>(QLatin1String(name));
    }
    QTableView *table() const;
    QAbstractItemModel *rows() const { return table()->model(); }
    void setGroup(const char *name, bool on) const;
    void typeInto(const char *edit, const QString &text) const;
    QStringList search();
    void compare(const char *what, const std::function<bool(const Entry &)> &accepts);

    QString m_root;
    QWidget *m_panel = nullptr;
    MainWindow *m_window = nullptr;
    bool m_worked = false;
};

void TestWholeSearch::initTestCase()
{
    m_root = TestHome::instance()->path(QStringLiteral("projects"));
    makeTree();
    prepareSettings();
}

void TestWholeSearch::makeTree() const
{
    for (int number = 0; number < files; ++number) {
        const QString path = m_root + QLatin1Char('/') + nameOf(number);
        QDir().mkpath(QFileInfo(path).path());
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly));
        if (number % reportShare == 0) {
            QByteArray report = packReportEntries({{QStringLiteral("xml"), reportText(number)}});
            if (number / reportShare < reportsToDamage)
                report.truncate(report.size() - number / reportShare);
            file.write(report);
        } else {
            file.write(QByteArray(number % 15 == 0 ? 5000 : number % 5 == 0 ? 4096 : 100, 'x'));
        }
        file.flush();
        if (number % 7 == 0)
            file.setFileTime(QDateTime(surveyDay, QTime(number % 24, 0)), QFile::FileModificationTime);
    }
    // What must not be found, and must not lead anywhere.
    QVERIFY(QFile::link(m_root, m_root + QStringLiteral("/Area 1/Roof again.lnk")));
    QVERIFY(QFile::link(m_root + QStringLiteral("/nowhere"), m_root + QStringLiteral("/Roof dangling.lnk")));
    QVERIFY(QDir().mkpath(m_root + QStringLiteral("/.roof hidden/Roof")));
    hide(m_root + QStringLiteral("/.roof hidden"));
}

void TestWholeSearch::prepareSettings() const
{
    QSettings settings(Identity::organisationName(), Identity::applicationName());
    settings.setValue(QStringLiteral("locale"), QStringLiteral("en"));
    settings.setValue(QStringLiteral("Directories/RootDir"), m_root);
    settings.setValue(QStringLiteral("Welcome/show"), false);
}

void TestWholeSearch::everySearchFindsWhatAnIndependentWalkFinds()
{
    WholeProgram::run(
        {}, [](BoxWatcher &) {},
        [this](MainWindow &window, BoxWatcher &watcher, int) {
            work(window);
            QCOMPARE(watcher.texts(), QStringList());
        });
    QVERIFY(m_worked);
}

void TestWholeSearch::work(MainWindow &window)
{
    m_window = &window;
    m_panel = window.findChild<QWidget *>(QStringLiteral("findInFiles"));
    window.findChild<QDockWidget *>(QStringLiteral("documentSearch"))->raise();
    QTRY_VERIFY(m_panel->isVisible());
    WholeProgram::takePicture(&window, QStringLiteral("search panel"));
    compare("everything", [](const Entry &) { return true; });
    findByName();
    findByDate();
    findBySize();
    findByPhrase();
    findByAll();
    stopHalfway();
    openAFoundReport(window);
    m_worked = true;
}

QTableView *TestWholeSearch::table() const
{
    return m_window->findChild<SearchResultsDocument *>()->findChild<QTableView *>();
}

void TestWholeSearch::setGroup(const char *name, bool on) const
{
    if (find<QGroupBox>(name)->isChecked() != on)
        QTest::mouseClick(find<QGroupBox>(name), Qt::LeftButton, Qt::NoModifier, QPoint(12, 8));
    QCOMPARE(find<QGroupBox>(name)->isChecked(), on);
}

void TestWholeSearch::typeInto(const char *edit, const QString &text) const
{
    find<QLineEdit>(edit)->selectAll();
    QTest::keyClicks(find<QLineEdit>(edit), text);
    QCOMPARE(find<QLineEdit>(edit)->text(), text);
}

QStringList TestWholeSearch::search()
{
    QTest::mouseClick(find<QPushButton>("search"), Qt::LeftButton);
    QStringList paths;
    for (int row = 0; row < rows()->rowCount(); ++row)
        paths.append(rows()->index(row, 0).data(Qt::UserRole).toString());
    paths.sort();
    return paths;
}

void TestWholeSearch::compare(const char *what, const std::function<bool(const Entry &)> &accepts)
{
    const QStringList expected = IndependentSearch::walk(m_root, accepts);
    QVERIFY2(!expected.isEmpty(), what);
    const QStringList found = search();
    QVERIFY2(
        found == expected,
        qPrintable(QStringLiteral("%1: %2 instead of %3").arg(what).arg(found.size()).arg(expected.size())));
}

void TestWholeSearch::findByName()
{
    typeInto("nameEdit", QStringLiteral("roof"));
    compare("by name", [](const Entry &entry) { return matches(entry, "*roof*"); });
    WholeProgram::takePicture(m_window, QStringLiteral("search results"));
    typeInto("nameEdit", QStringLiteral("oof ?5*.k"));
    compare("by pattern", [](const Entry &entry) { return matches(entry, "*oof ?5*.k*"); });
    typeInto("nameEdit", QStringLiteral("no such name"));
    QCOMPARE(search(), QStringList{QString()});
    WholeProgram::takePicture(m_window, QStringLiteral("search without results"));
    setGroup("fileGroup", false);
}

void TestWholeSearch::findByDate()
{
    setGroup("dateGroup", true);
    find<QDateEdit>("dateFrom")->setDate(surveyDay);
    find<QDateEdit>("dateTo")->setDate(surveyDay);
    compare("by date", isOfTheSurvey);
    setGroup("dateGroup", false);
}

void TestWholeSearch::findBySize()
{
    setGroup("sizeGroup", true);
    find<QSpinBox>("sizeLimit")->setValue(4);
    compare("by size, greater", [](const Entry &entry) { return entry.size >= 4096; });
    find<QComboBox>("sizeKind")->setCurrentIndex(1);
    compare("by size, less", [](const Entry &entry) { return entry.size <= 4096; });
    setGroup("sizeGroup", false);
}

void TestWholeSearch::findByPhrase()
{
    setGroup("phraseGroup", true);
    typeInto("phraseEdit", QStringLiteral("pv string"));
    compare("by phrase",
            [](const Entry &entry) { return containsPhrase(entry, QStringLiteral("pv string")); });
    QCOMPARE(rows()->index(0, 0).data(Qt::UserRole).toString().section('.', -1).left(3),
             QStringLiteral("kel"));
    setGroup("phraseGroup", false);
}

void TestWholeSearch::findByAll()
{
    for (const char *group : {"fileGroup", "phraseGroup", "dateGroup", "sizeGroup"})
        setGroup(group, true);
    typeInto("nameEdit", QStringLiteral("ROOF"));
    compare("by all", [](const Entry &entry) {
        return matches(entry, "*roof*") && isOfTheSurvey(entry) && entry.size <= 4096 &&
               containsPhrase(entry, QStringLiteral("pv string"));
    });
    WholeProgram::takePicture(m_window, QStringLiteral("search by all"));
    for (const char *group : {"fileGroup", "phraseGroup", "dateGroup", "sizeGroup"})
        setGroup(group, false);
}

void TestWholeSearch::stopHalfway()
{
    // The press comes in through the event loop of the walk, as a user's does.
    constexpr int enough = 3000;
    int atPress = 0;
    QTimer hand;
    connect(&hand, &QTimer::timeout, &hand, [&] {
        if (rows()->rowCount() < enough || atPress > 0)
            return;
        atPress = rows()->rowCount();
        WholeProgram::takePicture(m_window, QStringLiteral("search running"));
        atPress = rows()->rowCount();
        QTest::mousePress(find<QPushButton>("stop"), Qt::LeftButton);
    });
    hand.start(0);
    const int found = search().size();
    QVERIFY(atPress >= enough);
    // The entry in hand, and one for each level on the way out.
    QVERIFY2(found >= atPress && found <= atPress + 3,
             qPrintable(QStringLiteral("%1, then %2").arg(atPress).arg(found)));
    QVERIFY(found < files);
    QVERIFY(find<QPushButton>("search")->isVisible());
}

void TestWholeSearch::openAFoundReport(MainWindow &window)
{
    // Sound XML is enough for a report to open, on the form that its kind has.
    setGroup("fileGroup", true);
    typeInto("nameEdit", QStringLiteral("9920.kel"));
    QCOMPARE(search().size(), 1);
    Hands::doubleClick(table(), rows()->index(0, 0));
    QTRY_COMPARE(window.documents().size(), 2);
    QCOMPARE(window.activeDocument()->filePath(), m_root + QLatin1Char('/') + nameOf(9920));
}

int main(int argc, char **argv)
{
    qSetGlobalQHashSeed(0);
    TestHome home;
    TestWholeSearch test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_wholesearch.moc"

#include "app/batch/PlotCommand.h"
#include "app/batch/StringSelection.h"
#include "curve/data/CurveTreeModel.h"
#include "tests/curve/ui/GraphDesk.h"
#include "tests/support/TestMain.h"

#include <QImage>
#include <QProcess>

using namespace IVCurve;

namespace {

struct Outcome
{
    int code = -1;
    QString errors;
};

Outcome run(const QStringList &arguments)
{
    QProcess process;
    process.start(KELMAR_BATCH, arguments);
    if (!process.waitForFinished(patience) || process.exitStatus() != QProcess::NormalExit)
        return Outcome();
    return {process.exitCode(), QString::fromUtf8(process.readAllStandardError())};
}

QString path(const QString &name)
{
    return TestHome::instance()->path("out/" + name);
}

QString output(const QString &program, const QStringList &arguments)
{
    QProcess process;
    process.start(program, arguments);
    return process.waitForFinished(patience) ? QString::fromUtf8(process.readAllStandardOutput()) : QString();
}

QString textOf(const QString &pdf)
{
    return output("pdftotext", {pdf, "-"}).simplified();
}

} // namespace

class TestPlotCommand : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void stringsAreNamedByAListOrAll_data();
    void stringsAreNamedByAListOrAll();
    void textThatIsNoListNamesNoStrings_data();
    void textThatIsNoListNamesNoStrings();
    void viewsAreNamedByAList();
    void stringsAreSelectedInTheirOrder();
    void stringThatIsNotThereIsRefused();
    void folderIsNoString();

    void graphOfAllStringsGoesToAnImage();
    void graphOfSomeStringsGoesToAPdf();
    void fileIsLeftAsItWas();
    void viewsAreThoseAskedFor();
    void languageIsThatOfTheGraph();
    void badInputWritesNothing_data();
    void badInputWritesNothing();
    void wrongUsageEndsWithTwo_data();
    void wrongUsageEndsWithTwo();
    void existingFileIsOverwrittenByForceOnly();

private:
    /// A file with the strings 1 to 3, named One to Three, and a folder.
    static QString fileOfThree();
};

void TestPlotCommand::init()
{
    TestHome::instance()->reset();
    QDir(path("")).removeRecursively();
    QVERIFY(QDir().mkpath(path("")));
}

QString TestPlotCommand::fileOfThree()
{
    GraphDesk desk;
    desk.add("One", plainCurve());
    desk.add("Two", {{100, 2}, {200, 1.5}, {230, 0.1}});
    desk.add("Three", {{10, 9}, {60, 8}, {70, 0.2}});
    auto *tree = qobject_cast<CurveTreeModel *>(desk.tree().model());
    tree->insertNewRow(QModelIndex());
    tree->slotSave();
    return desk.path();
}

void TestPlotCommand::stringsAreNamedByAListOrAll_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("all");
    QTest::addColumn<QVector<quint32>>("ids");
    QTest::newRow("all") << "all" << true << QVector<quint32>{};
    QTest::newRow("one") << "7" << false << QVector<quint32>{7};
    QTest::newRow("in any order") << "3,1,7" << false << QVector<quint32>{3, 1, 7};
    QTest::newRow("with blanks") << " 3 , 1" << false << QVector<quint32>{3, 1};
    QTest::newRow("twice the same") << "3,1,3" << false << QVector<quint32>{3, 1};
    QTest::newRow("the largest") << "4294967295" << false << QVector<quint32>{4294967295u};
}

void TestPlotCommand::stringsAreNamedByAListOrAll()
{
    QFETCH(QString, text);
    const auto selection = parseStringSelection(text);
    QVERIFY(selection);
    QTEST(selection->all, "all");
    QTEST(selection->ids, "ids");
}

void TestPlotCommand::textThatIsNoListNamesNoStrings_data()
{
    QTest::addColumn<QString>("text");
    for (const char *text :
         {"", " ", "ALL", "all,1", "0", "-1", "1-3", "1,", ",1", "1;2", "1.5", "x", "4294967296"})
        QTest::newRow(text) << QString(text);
}

void TestPlotCommand::textThatIsNoListNamesNoStrings()
{
    QFETCH(QString, text);
    QVERIFY(!parseStringSelection(text));
}

void TestPlotCommand::viewsAreNamedByAList()
{
    QCOMPARE(*parseViews("MEAS,STC,NOM,IV,PWR"), QStringList({"MEAS", "STC", "NOM", "IV", "PWR"}));
    QCOMPARE(*parseViews("IV"), QStringList("IV"));
    for (const char *text : {"", "iv", "IV,", "IV,POWER", "IV STC"})
        QVERIFY(!parseViews(text));
}

void TestPlotCommand::stringsAreSelectedInTheirOrder()
{
    GraphDesk desk;
    const QVector<quint32> ids = desk.addSeveral(3);
    StringSelection wanted;
    wanted.all = false;
    wanted.ids = {ids.at(1), ids.at(0)};
    QVERIFY(selectStrings(wanted, desk.tree()));
    QCOMPARE(desk.graph().titleText(), QString("S2, S1"));
    QCOMPARE(desk.tree().selectedRows(0).size(), 2);
    // New nodes stand in front.
    QVERIFY(selectStrings(StringSelection(), desk.tree()));
    QCOMPARE(desk.model()->records().size(), size_t(3));
    QCOMPARE(desk.tree().selectedRows(0).size(), 3);
}

void TestPlotCommand::stringThatIsNotThereIsRefused()
{
    GraphDesk desk;
    const QVector<quint32> ids = desk.addSeveral(2);
    StringSelection wanted;
    wanted.all = false;
    wanted.ids = {ids.at(0), 4711};
    QVERIFY(!selectStrings(wanted, desk.tree()));
    QCOMPARE(desk.model()->records().size(), size_t(0));
}

void TestPlotCommand::folderIsNoString()
{
    GraphDesk desk;
    QVERIFY(!selectStrings(StringSelection(), desk.tree()));
    qobject_cast<CurveTreeModel *>(desk.tree().model())->insertNewRow(QModelIndex());
    QVERIFY(!selectStrings(StringSelection(), desk.tree()));
}

void TestPlotCommand::graphOfAllStringsGoesToAnImage()
{
    const Outcome outcome = run({"plot", fileOfThree(), path("all.png")});
    QCOMPARE(outcome.errors, QString());
    QCOMPARE(outcome.code, 0);
    const QImage image(path("all.png"));
    QVERIFY(qAbs(image.width() - 3508) <= 1 && qAbs(image.height() - 2480) <= 1);
}

void TestPlotCommand::graphOfSomeStringsGoesToAPdf()
{
    const QString file = fileOfThree();
    QCOMPARE(run({"plot", file, path("some.pdf"), "--strings", "3,1"}).code, 0);
    const QString text = textOf(path("some.pdf"));
    QVERIFY2(text.contains("Three, One"), qPrintable(text));
    QVERIFY(text.contains("One (1,000)"));
    QVERIFY(!text.contains("Two"));
    QVERIFY(output("pdfinfo", {path("some.pdf")}).contains("842 x 595 pts (A4)"));
}

void TestPlotCommand::fileIsLeftAsItWas()
{
    const QString file = fileOfThree();
    // Opening brings it up to date once.
    QCOMPARE(run({"plot", file, path("first.png")}).code, 0);
    const QByteArray before = readFile(file);
    QCOMPARE(run({"plot", file, path("second.png"), "--show", "MEAS,NOM,IV,PWR"}).code, 0);
    QCOMPARE(readFile(file), before);
}

void TestPlotCommand::viewsAreThoseAskedFor()
{
    const QString file = fileOfThree();
    QCOMPARE(run({"plot", file, path("fresh.pdf")}).code, 0);
    QString text = textOf(path("fresh.pdf"));
    QVERIFY2(text.contains("Current (A)") && !text.contains("Power (W)"), qPrintable(text));
    QVERIFY(text.contains("STC") && !text.contains("MEAS") && !text.contains("NOM"));
    QCOMPARE(run({"plot", file, path("power.pdf"), "--show", "MEAS,NOM,PWR"}).code, 0);
    text = textOf(path("power.pdf"));
    QVERIFY2(!text.contains("Current (A)") && text.contains("Power (W)"), qPrintable(text));
    QVERIFY(!text.contains("STC") && text.contains("MEAS") && text.contains("NOM"));
}

void TestPlotCommand::languageIsThatOfTheGraph()
{
    QCOMPARE(run({"plot", fileOfThree(), path("german.pdf"), "--language", "de"}).code, 0);
    QVERIFY(textOf(path("german.pdf")).contains("One (1.000)"));
}

void TestPlotCommand::badInputWritesNothing_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("target");
    QTest::addColumn<QString>("strings");
    QTest::addColumn<QString>("told");
    QTest::newRow("no file") << "missing.kelcrv"
                             << "out.png"
                             << "all"
                             << "missing.kelcrv cannot be read";
    QTest::newRow("no such string") << ""
                                    << "out.png"
                                    << "1,9"
                                    << "There is no string 9";
    QTest::newRow("no format") << ""
                               << "out.doc"
                               << "all"
                               << "out.doc names no format";
    QTest::newRow("no folder") << ""
                               << "nowhere/out.pdf"
                               << "all"
                               << "nowhere/out.pdf for writing";
    QTest::newRow("no curve file") << "text.kelcrv"
                                   << "out.png"
                                   << "all"
                                   << "not a database";
}

void TestPlotCommand::badInputWritesNothing()
{
    QFETCH(QString, file);
    QFETCH(QString, target);
    QFETCH(QString, strings);
    QFETCH(QString, told);
    writeFile(path("text.kelcrv"), "This is no database at all, only some text.\n");
    const Outcome outcome =
        run({"plot", file.isEmpty() ? fileOfThree() : path(file), path(target), "--strings", strings});
    QCOMPARE(outcome.code, 1);
    QVERIFY2(outcome.errors.contains(told), qPrintable(outcome.errors));
    QVERIFY(!QFileInfo::exists(path(target)));
}

void TestPlotCommand::wrongUsageEndsWithTwo_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::newRow("nothing") << QStringList{"plot"};
    QTest::newRow("no target") << QStringList{"plot", "a.kelcrv"};
    QTest::newRow("too much") << QStringList{"plot", "a.kelcrv", "b.png", "c.png"};
    QTest::newRow("no list of strings") << QStringList{"plot", "a.kelcrv", "b.png", "--strings", "1-4"};
    QTest::newRow("no list of views") << QStringList{"plot", "a.kelcrv", "b.png", "--show", "ALL"};
}

void TestPlotCommand::wrongUsageEndsWithTwo()
{
    QFETCH(QStringList, arguments);
    const Outcome outcome = run(arguments);
    QCOMPARE(outcome.code, 2);
    QVERIFY(outcome.errors.contains("usage: kelmar-batch"));
}

void TestPlotCommand::existingFileIsOverwrittenByForceOnly()
{
    const QString file = fileOfThree();
    writeFile(path("mine.png"), "mine");
    QCOMPARE(run({"plot", file, path("mine.png")}).code, 1);
    QCOMPARE(readFile(path("mine.png")), QByteArray("mine"));
    QCOMPARE(run({"plot", file, path("mine.png"), "--force"}).code, 0);
    QVERIFY(!QImage(path("mine.png")).isNull());
}

KELMAR_TEST_MAIN(TestPlotCommand)
#include "tst_plotcommand.moc"

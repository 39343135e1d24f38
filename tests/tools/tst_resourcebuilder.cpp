#include "report/file/ReportFile.h"
#include "tests/support/TestMain.h"

#include <QDirIterator>
#include <QProcess>
#include <QtTest>

namespace {

const char form[] = R"(<document><page id="page1" editable="0">
    <!-- a remark -->
    <svg dpi="90" file="backgrounds/a.svg"/>
    <text width="50" height="20">Label</text>
    <text id="field" editable="1">Filled</text>
    <text id="fixed">Label</text>
    <table id="grid" editable="1">
    <tableset col="0" editable="0"/><tableset row="0"/><tableset row="1" editable="1"/>
    <cell row="0" col="0">1</cell><cell row="1" col="0">2</cell><cell row="2" col="0">3</cell>
    <cell row="2" col="1">4</cell><cell row="2" col="2"/><cell row="2" col="3" editable="0">5</cell>
    </table>
    <image x="1" file="images/b.svg"/><image x="2" file="images/b.svg"/>
    </page></document>)";

const char picture[] = "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"4\" height=\"4\"><rect width=\"4\" "
                       "height=\"4\"/></svg>";

} // namespace

class TestResourceBuilder : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void theSameSourcesGiveTheSameBytes();
    void aTableOfLabelsIsALanguage();
    void theOverlayHoldsWhatAUserCanHaveChanged();
    void aFormWithoutRevisionsIsOnePackageOfItsName();
    void theFirstRevisionIsTheCurrentOne();
    void aLabelWithoutATranslationStopsTheBuild();
    void aBrokenFormIsToldWithItsLine();
    void whatCannotBeReadStopsTheBuild_data();
    void whatCannotBeReadStopsTheBuild();
    void whatIsNotListedIsNotEmbedded();
    void iconsForDesktopsComeInAllSizes();
    void htmlTemplatesAreMadeInEveryLanguage();
    void aTextOfATemplateWithoutATranslationStopsTheBuild();
    void databasesAreMadeFromSqlAndFromATable();
    void aBrokenDatabaseSourceIsToldWithItsFile_data();
    void aBrokenDatabaseSourceIsToldWithItsFile();

private:
    int build(const QString &source, const QString &target);
    int build() { return build(m_source, m_target); }
    QString xmlOf(const QString &file) const;

    QString m_source;
    QString m_target;
    QByteArray m_errors;
};

/// A small source folder that builds.
void TestResourceBuilder::init()
{
    QDir(TestHome::instance()->path("builder")).removeRecursively();
    m_source = TestHome::instance()->path("builder/source");
    m_target = TestHome::instance()->path("builder/target");
    for (const QString &folder : {QString("fileTypes"), QString("images"), QString("toolButtons")})
        writeFile(m_source + "/art/icons/" + folder + "/picture.svg", picture);
    writeFile(m_source + "/art/reports/backgrounds/a.svg", picture);
    writeFile(m_source + "/art/reports/images/b.svg", picture);
    writeFile(m_source + "/forms/kelfoo.xml", form);
    writeFile(m_source + "/forms/labels_de.tsv",
              "# English\tGerman\nLabel\tSchild\t60\t30\nFilled\tGefüllt\n");
    writeFile(m_source + "/forms/revisions.tsv", "# package\n");
    writeFile(m_source + "/curvereport/Report.html",
              "<style>td { color: red; }</style>\n<body>\n<td>Word</td> <b>Two words</b>\n<td>%</td>\n");
    writeFile(m_source + "/curvereport/words_de.tsv",
              "# English\tGerman\nWord\tWört\nTwo words\tZwei Wörter\n");
    writeFile(m_source + "/databases/kelcrv.sql",
              "-- a remark; no statement\nCREATE TABLE Curves (a,\nb);\n");
    writeFile(m_source + "/databases/modules.sql",
              "CREATE TABLE Modules (Description, Isc, Voc, Imp, Vmp, alpha, beta, delta, Rs);\n");
    writeFile(m_source + "/databases/modules.tsv",
              "# a remark\nOne, 36 cells\tmono\t36\t50\t3.1\t22\t2.9\t17.5\t0.001\t-0.07\t0.085\t0.3\n");
}

int TestResourceBuilder::build(const QString &source, const QString &target)
{
    QProcess process;
    process.start(KELMAR_RESOURCE_BUILDER, {source, target});
    if (!process.waitForFinished(patience) || process.exitStatus() != QProcess::NormalExit)
        return -1;
    m_errors = process.readAllStandardError();
    return process.exitCode();
}

QString TestResourceBuilder::xmlOf(const QString &file) const
{
    const ReportFileEntries entries = unpackReportEntries(readFile(m_target + '/' + file));
    return entries.isEmpty() ? QString() : QString::fromUtf8(entries.first().data);
}

void TestResourceBuilder::theSameSourcesGiveTheSameBytes()
{
    const QString first = TestHome::instance()->path("builder/first");
    const QString second = TestHome::instance()->path("builder/second");
    QCOMPARE(build(KELMAR_RESOURCE_SOURCES, first), 0);
    QCOMPARE(build(KELMAR_RESOURCE_SOURCES, second), 0);
    int files = 0;
    for (QDirIterator it(first, QDir::Files, QDirIterator::Subdirectories); it.hasNext();) {
        const QString path = it.next();
        QCOMPARE(readFile(second + path.mid(first.size())), readFile(path));
        ++files;
    }
    QVERIFY(files > 100);
}

void TestResourceBuilder::aTableOfLabelsIsALanguage()
{
    writeFile(m_source + "/forms/labels_fr.tsv", "Label\tPanneau\nFilled\tRempli\n");
    writeFile(m_source + "/curvereport/words_fr.tsv", "Word\tMot\nTwo words\tDeux mots\n");
    QCOMPARE(build(), 0);
    QVERIFY(readFile(m_target + "/reports_fr/Report.html").contains("<b>Deux mots</b>"));
    QVERIFY(xmlOf("reports_en/kelfoo.pak").contains(">Label<"));
    QVERIFY(xmlOf("reports_en/kelfoo.pak").contains(" width=\"50\""));
    QVERIFY(xmlOf("reports_de/kelfoo.pak").contains(">Schild<"));
    QVERIFY(xmlOf("reports_de/kelfoo.pak").contains(" width=\"60\""));
    QVERIFY(xmlOf("reports_de/kelfoo.pak").contains(" height=\"30\""));
    QVERIFY(xmlOf("reports_de/kelfoo.pak").contains(":res/reports_de/backgrounds/a.svg"));
    QVERIFY(xmlOf("reports_fr/kelfoo.pak").contains(">Panneau<"));
    QVERIFY(xmlOf("reports_fr/kelfoo.pak").contains(" width=\"50\""));
    QVERIFY(QFile::exists(m_target + "/reports_fr/images/b.svg"));
    QVERIFY(readFile(m_target + "/kelmar.qrc").contains("\"reports_fr/default.kelfoo\""));
}

void TestResourceBuilder::theOverlayHoldsWhatAUserCanHaveChanged()
{
    QCOMPARE(build(), 0);
    QCOMPARE(xmlOf("reports_de/default.kelfoo"), QString(R"(<document resPak=":res/reports_de/kelfoo.pak">
  <page id="page1">
    <text id="field">Gefüllt</text>
    <text id="fixed"/>
    <table id="grid">
      <cell col="0" row="0">1</cell>
      <cell col="0" row="1">2</cell>
      <cell col="1" row="2">4</cell>
    </table>
    <image x="1" index="1"/>
    <image x="2" index="2"/>
  </page>
</document>
)"));
    const ReportFileEntries entries = unpackReportEntries(readFile(m_target + "/reports_de/default.kelfoo"));
    QCOMPARE(entries.size(), 3);
    QCOMPARE(entries.at(2).name, QString("svg"));
    QCOMPARE(entries.at(2).data, QByteArray(picture));
    QVERIFY(!xmlOf("reports_de/kelfoo.pak").contains("image"));
}

void TestResourceBuilder::aFormWithoutRevisionsIsOnePackageOfItsName()
{
    writeFile(m_source + "/forms/revisions.tsv", "kelfoobar\tfield\tother\n");
    QCOMPARE(build(), 0);
    const QStringList packages = QDir(m_target + "/reports_en").entryList({"*.pak"});
    QCOMPARE(packages, QStringList("kelfoo.pak"));
    QVERIFY(xmlOf("reports_en/kelfoo.pak").contains("id=\"field\""));
}

void TestResourceBuilder::theFirstRevisionIsTheCurrentOne()
{
    writeFile(m_source + "/forms/revisions.tsv", "kelfoo_rev2\nkelfoo\tfield\told\nkelfoo\tfixed\t\n");
    QCOMPARE(build(), 0);
    QCOMPARE(QDir(m_target + "/reports_en").entryList({"*.pak"}),
             QStringList({"kelfoo.pak", "kelfoo_rev2.pak"}));
    QVERIFY(xmlOf("reports_en/default.kelfoo").contains(":res/reports_en/kelfoo_rev2.pak"));
    QVERIFY(xmlOf("reports_en/default.kelfoo").contains("id=\"field\""));
    QVERIFY(xmlOf("reports_en/kelfoo_rev2.pak").contains("id=\"fixed\""));
    QVERIFY(xmlOf("reports_en/kelfoo.pak").contains("id=\"old\""));
    QVERIFY(!xmlOf("reports_en/kelfoo.pak").contains("id=\"field\""));
    QVERIFY(!xmlOf("reports_en/kelfoo.pak").contains("id=\"fixed\""));
}

void TestResourceBuilder::aLabelWithoutATranslationStopsTheBuild()
{
    writeFile(m_source + "/forms/labels_de.tsv", "Filled\tGefüllt\n");
    QCOMPARE(build(), 1);
    QVERIFY2(m_errors.contains("\"Label\""), m_errors.constData());
    writeFile(m_source + "/forms/labels_de.tsv", "Filled\tGefüllt\nLabel\t\n");
    QCOMPARE(build(), 1);
    writeFile(m_source + "/forms/labels_de.tsv", "Filled\tGefüllt\nLabel\tA\nLabel\tB\n");
    QCOMPARE(build(), 1);
}

void TestResourceBuilder::aBrokenFormIsToldWithItsLine()
{
    writeFile(m_source + "/forms/kelfoo.xml", "<document>\n<page>\n</document>");
    QCOMPARE(build(), 1);
    QVERIFY2(m_errors.contains("kelfoo.xml:3:"), m_errors.constData());
}

void TestResourceBuilder::whatCannotBeReadStopsTheBuild_data()
{
    QTest::addColumn<QString>("missing");
    QTest::newRow("revisions") << "/forms/revisions.tsv";
    QTest::newRow("picture of the report") << "/art/reports/images/b.svg";
    QTest::newRow("icons") << "/art/icons/toolButtons/picture.svg";
}

void TestResourceBuilder::whatCannotBeReadStopsTheBuild()
{
    QFETCH(QString, missing);
    QVERIFY(QFile::remove(m_source + missing));
    QCOMPARE(build(), 1);
    QVERIFY(!m_errors.isEmpty());
}

void TestResourceBuilder::whatIsNotListedIsNotEmbedded()
{
    writeFile(m_target + "/toolButtons/stale.png", "left over");
    QCOMPARE(build(), 0);
    const QByteArray list = readFile(m_target + "/kelmar.qrc");
    QVERIFY(list.contains("toolButtons/picture@2x.png"));
    QVERIFY(!list.contains("stale"));
}

void TestResourceBuilder::iconsForDesktopsComeInAllSizes()
{
    QProcess process;
    process.start(KELMAR_RESOURCE_BUILDER, {"--desktop-icons", KELMAR_RESOURCE_SOURCES, m_target});
    QVERIFY(process.waitForFinished(patience));
    QCOMPARE(process.exitCode(), 0);
    const QStringList names{"apps/kelmar",
                            "mimetypes/application-x-kelmar-inspection-report",
                            "mimetypes/application-x-kelmar-array-test-report",
                            "mimetypes/application-x-kelmar-verification-certificate",
                            "mimetypes/application-x-kelmar-checklist",
                            "mimetypes/application-x-kelmar-installation-diagram",
                            "mimetypes/application-x-kelmar-curve-data"};
    for (const QString &name : names) {
        for (const int side : {16, 22, 24, 32, 48, 64, 128, 256}) {
            const QString file = QString("%1/hicolor/%2x%2/%3.png").arg(m_target).arg(side).arg(name);
            const QImage image(file);
            QVERIFY2(image.size() == QSize(side, side), qPrintable(file));
            // Drawn, and on a transparent ground.
            QVERIFY2(qAlpha(image.pixel(side / 2, side / 2)) == 255, qPrintable(file));
            QVERIFY2(qAlpha(image.pixel(0, 0)) < 255, qPrintable(file));
        }
        QVERIFY(readFile(m_target + "/hicolor/scalable/" + name + ".svg").contains("<svg"));
    }
}

void TestResourceBuilder::htmlTemplatesAreMadeInEveryLanguage()
{
    QCOMPARE(build(), 0);
    QCOMPARE(
        readFile(m_target + "/reports_en/Report.html"),
        QByteArray("\xef\xbb\xbf<style>td { color: red; }</style>\r\n<body>\r\n<td>Word</td> <b>Two words</b>"
                   "\r\n<td>%</td>\r\n"));
    QCOMPARE(readFile(m_target + "/reports_de/Report.html"),
             QByteArray(
                 "\xef\xbb\xbf<style>td { color: red; }</style>\r\n<body>\r\n<td>Wört</td> <b>Zwei Wörter</b>"
                 "\r\n<td>%</td>\r\n"));
    QVERIFY(readFile(m_target + "/kelmar.qrc").contains("\"reports_de/Report.html\""));
}

void TestResourceBuilder::aTextOfATemplateWithoutATranslationStopsTheBuild()
{
    writeFile(m_source + "/curvereport/words_de.tsv", "Word\tWört\n");
    QCOMPARE(build(), 1);
    QVERIFY2(m_errors.contains("\"Two words\""), m_errors.constData());
    QVERIFY(QFile::remove(m_source + "/curvereport/words_de.tsv"));
    QCOMPARE(build(), 1);
    QVERIFY2(m_errors.contains("words_de.tsv"), m_errors.constData());
}

void TestResourceBuilder::databasesAreMadeFromSqlAndFromATable()
{
    QCOMPARE(build(), 0);
    QVERIFY(readFile(m_target + "/reports_de/default.kelcrv").startsWith("SQLite format 3"));
    QCOMPARE(readFile(m_target + "/reports_en/default.kelcrv"),
             readFile(m_target + "/reports_de/default.kelcrv"));
    QVERIFY(readFile(m_target + "/kelmar.qrc").contains("reports_en/default.kelcrv"));
    QVERIFY(readFile(m_target + "/modules.db").contains("One, 36 cells"));
    QVERIFY(!readFile(m_target + "/kelmar.qrc").contains("modules.db"));
}

void TestResourceBuilder::aBrokenDatabaseSourceIsToldWithItsFile_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QByteArray>("content");
    QTest::newRow("statement") << "kelcrv.sql" << QByteArray("CREATE TABEL Curves (a);");
    QTest::newRow("too few columns") << "modules.tsv" << QByteArray("One\tmono\t36\t50\t3.1\n");
    QTest::newRow("no number") << "modules.tsv"
                               << QByteArray("One\tmono\t36\t50\tx\t22\t2.9\t17.5\t0\t0\t0\t0.3\n");
}

void TestResourceBuilder::aBrokenDatabaseSourceIsToldWithItsFile()
{
    QFETCH(QString, file);
    QFETCH(QByteArray, content);
    writeFile(m_source + "/databases/" + file, content);
    QCOMPARE(build(), 1);
    QVERIFY2(m_errors.contains(file.toUtf8()), m_errors.constData());
}

KELMAR_TEST_MAIN(TestResourceBuilder)
#include "tst_resourcebuilder.moc"

#include "app/core/Language.h"
#include "curve/data/StringRecord.h"
#include "curve/ui/PointExport.h"
#include "res/Resources.h"
#include "tests/support/BoxWatcher.h"
#include "tests/support/LocaleSwitch.h"
#include "tests/support/SmallFiles.h"
#include "tests/support/TestMain.h"

using namespace IVCurve;

namespace {

StringRecord threePoints()
{
    CurveTrace trace;
    trace.addPoint(0.5, 8.123456789, 803, 0);
    trace.addPoint(250.25, 7.5, 803, 0);
    trace.addPoint(601234.5, 0.25, 803, 0);
    StringHeader header;
    header.name = "Roof \"A\", <1>";
    header.irradiance = "803.40";
    header.ambientTemp = "21,5";
    header.cellTemp = QString();
    header.ff = ">74";
    return StringRecord(header, trace);
}

} // namespace

class TestPointExport : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { initResources(); }
    void init();

    void tableHoldsReadingsAsTheyAreAndAllPoints();
    void commaAsDecimalMarkMakesSemicolons();
    void headsAreTranslatedButSymbolsAreNot();
    void eachKindHasItsSuffixAndItsCurve_data();
    void eachKindHasItsSuffixAndItsCurve();
    void correctedCurveReachesBothAxes();
    void stringWithoutPointsHasHeadsOnly();
    void fileThatIsThereIsWrittenAnew();
    void folderThatCannotBeWrittenIsTold_data();
    void folderThatCannotBeWrittenIsTold();
    void diskThatIsFullIsTold();

private:
    QStringList linesOf(StringRecord &record, PointExport::Kind kind) const;

    QString m_path;
};

void TestPointExport::init()
{
    TestHome::instance()->reset();
    useLanguage("en", QLocale("en"));
    m_path = TestHome::instance()->path("points.csv");
    QFile::remove(m_path);
}

QStringList TestPointExport::linesOf(StringRecord &record, PointExport::Kind kind) const
{
    if (!PointExport::writeFile(record, kind, m_path))
        QTest::qFail("not written", __FILE__, __LINE__);
    const QString text = QString::fromUtf8(readFile(m_path));
    if (!text.endsWith('\n'))
        QTest::qFail("the last line has no end", __FILE__, __LINE__);
    return text.chopped(1).split('\n');
}

void TestPointExport::tableHoldsReadingsAsTheyAreAndAllPoints()
{
    StringRecord record = threePoints();
    // Numbers are the locale's, with what it puts between thousands.
    QCOMPARE(linesOf(record, PointExport::Measured),
             (QStringList{"Roof \"A\", <1> MEAS", "", "Irradiance,Ambient Temp,Cell Temp,Fill Factor",
                          "803.40,21,5,,>74", "", "V,I", "0.5,8.12346", "250.25,7.5", "601,235,0.25"}));
}

void TestPointExport::commaAsDecimalMarkMakesSemicolons()
{
    const LocaleSwitch german("de_DE");
    StringRecord record = threePoints();
    QCOMPARE(linesOf(record, PointExport::Measured),
             (QStringList{"Roof \"A\", <1> MEAS", "", "Irradiance;Ambient Temp;Cell Temp;Fill Factor",
                          "803.40;21,5;;>74", "", "V;I", "0,5;8,12346", "250,25;7,5", "601.235;0,25"}));
}

void TestPointExport::headsAreTranslatedButSymbolsAreNot()
{
    useLanguage("de", QLocale("de"));
    StringRecord record = threePoints();
    const QStringList lines = linesOf(record, PointExport::MeasuredPower);
    QCOMPARE(lines[0], "Roof \"A\", <1>" + PointExport::suffix(PointExport::MeasuredPower));
    QCOMPARE(lines[2], QString("Bestrahlungsstärke;Umgebungstemperatur;Zelltemperatur;Füllfaktor"));
    QCOMPARE(lines[5], QString("V;P"));
}

void TestPointExport::eachKindHasItsSuffixAndItsCurve_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<QString>("suffix");
    QTest::addColumn<QString>("head");
    QTest::newRow("measured") << 0 << " MEAS"
                              << "V,I";
    QTest::newRow("measured power") << 1 << " PWR"
                                    << "V,P";
    QTest::newRow("corrected") << 2 << " STC"
                               << "V,I";
    QTest::newRow("corrected power") << 3 << " STC PWR"
                                     << "V,P";
}

void TestPointExport::eachKindHasItsSuffixAndItsCurve()
{
    QFETCH(int, kind);
    QFETCH(QString, suffix);
    QFETCH(QString, head);
    StringRecord record = threePoints();
    const QStringList lines = linesOf(record, PointExport::Kind(kind));
    QCOMPARE(PointExport::suffix(PointExport::Kind(kind)), suffix);
    QCOMPARE(lines[0], "Roof \"A\", <1>" + suffix);
    QCOMPARE(lines[5], head);
    const CurveTrace &curve = kind == 0   ? record.measuredCurve()
                              : kind == 1 ? record.measuredPowerCurve()
                              : kind == 2 ? record.stcCurve(true)
                                          : record.stcPowerCurve();
    QCOMPARE(lines.size(), 6 + curve.size());
    for (int i = 0; i < curve.size(); ++i)
        QCOMPARE(lines[6 + i], QString("%1,%2").arg(QLocale().toString(curve.points[i].x(), 'g', 6),
                                                    QLocale().toString(curve.points[i].y(), 'g', 6)));
}

void TestPointExport::correctedCurveReachesBothAxes()
{
    StringRecord record = threePoints();
    const QStringList lines = linesOf(record, PointExport::Stc);
    QCOMPARE(lines.size(), 6 + 3 + 2);
    QVERIFY(lines[6].startsWith("0,"));
    QVERIFY(lines.last().endsWith(",0"));
}

void TestPointExport::stringWithoutPointsHasHeadsOnly()
{
    StringRecord record(threePoints().header(), CurveTrace());
    for (int kind = 0; kind < 4; ++kind)
        QCOMPARE(linesOf(record, PointExport::Kind(kind)).size(), 6);
}

void TestPointExport::fileThatIsThereIsWrittenAnew()
{
    writeFile(m_path, QByteArray(100000, 'x'));
    StringRecord record = threePoints();
    QCOMPARE(linesOf(record, PointExport::Measured).size(), 9);
}

void TestPointExport::folderThatCannotBeWrittenIsTold_data()
{
    QTest::addColumn<QString>("language");
    QTest::newRow("English") << "en";
    QTest::newRow("German") << "de";
}

void TestPointExport::folderThatCannotBeWrittenIsTold()
{
    QFETCH(QString, language);
    useLanguage(language, QLocale(language));
    const QString path = TestHome::instance()->path("no such folder/points.csv");
    BoxWatcher watcher;
    watcher.expect(path, QMessageBox::Ok);
    StringRecord record = threePoints();
    QVERIFY(!PointExport::writeFile(record, PointExport::Measured, path));
    const BoxWatcher::Box box = watcher.boxes().value(0);
    QCOMPARE(box.title, QString("Kelmar"));
    QCOMPARE(box.icon, QMessageBox::Critical);
    if (language == "en")
        QCOMPARE(box.text, " Could not open file:\n " + path);
    QVERIFY(box.text.startsWith(' ') && box.text.endsWith(":\n " + path));
}

void TestPointExport::diskThatIsFullIsTold()
{
    StringRecord record = threePoints();
    BoxWatcher watcher;
    watcher.expect(QString(), QMessageBox::Ok);
    {
        const SmallFiles limit(60);
        QVERIFY(!PointExport::writeFile(record, PointExport::Measured, m_path));
    }
    QCOMPARE(watcher.boxes().value(0).icon, QMessageBox::Critical);
    QVERIFY(!watcher.texts().value(0).isEmpty());
}

KELMAR_TEST_MAIN(TestPointExport)
#include "tst_pointexport.moc"

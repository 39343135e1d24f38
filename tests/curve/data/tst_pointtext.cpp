#include "curve/data/CurveTrace.h"
#include "curve/data/PlainNumber.h"
#include "curve/data/PointText.h"
#include "tests/support/TestMain.h"

#include <cmath>
#include <limits>
#include <random>

using namespace IVCurve;

namespace {

CurveTrace decoded(const QString &text)
{
    CurveTrace trace;
    if (!appendPoints(text, trace))
        QTest::qFail("the points were refused", __FILE__, __LINE__);
    return trace;
}

/// What the points of a text are by the toolkit's own means, value by value.
CurveTrace plainlyDecoded(const QString &text)
{
    CurveTrace trace;
    const QLocale c = QLocale::c();
    if (text.isEmpty())
        return trace;
    for (const QString &part : text.split('#')) {
        const QStringList values = part.split(':');
        double current = 0.0;
        double irradiance = 1000.0;
        bool ok = false;
        const double voltage = c.toDouble(values.at(0), &ok);
        if (ok && values.size() > 1) {
            current = c.toDouble(values.at(1), &ok);
            if (ok && values.size() > 2)
                irradiance = c.toDouble(values.at(2), &ok);
        }
        trace.addPoint(voltage, current, irradiance, 0);
    }
    return trace;
}

bool same(double a, double b)
{
    return (std::isnan(a) && std::isnan(b)) || (a >= b && a <= b && std::signbit(a) == std::signbit(b));
}

bool same(const CurveTrace &a, const CurveTrace &b)
{
    if (a.size() != b.size() || a.refs.size() != b.refs.size())
        return false;
    for (int i = 0; i < a.size(); ++i) {
        const TracePoint &left = a.refs[size_t(i)];
        const TracePoint &right = b.refs[size_t(i)];
        if (!same(a.points[i].x(), b.points[i].x()) || !same(a.points[i].y(), b.points[i].y()) ||
            !same(left.irradiance, right.irradiance) || left.tag != right.tag)
            return false;
    }
    return true;
}

} // namespace

class TestPointText : public QObject
{
    Q_OBJECT

private slots:
    void theExampleReadsAsItsTwoPoints();
    void anEmptyTextHasNoPoints();
    void aStraySeparatorIsAPointAtTheOriginUnder1000();
    void whatAPointLacksTakesItsDefault_data();
    void whatAPointLacksTakesItsDefault();
    void theTagIsDroppedAtLoading();
    void strangeNumbersReadAsTheToolkitReadsThem_data();
    void strangeNumbersReadAsTheToolkitReadsThem();
    void randomTextsReadAsTheToolkitReadsThem();
    void tooManyPointsAreRefusedAndAddNone();

    void pointsAreWrittenWithThreeDecimalsAndNoSeparatorAtTheEnd();
    void noPointsAreAnEmptyTextThatIsNotNull();
    void numbersAreWrittenAsTheToolkitWritesThem();
    void writtenPointsReadBackUnchanged();

    void cellsAreReadInTheLocalesNumbers_data();
    void cellsAreReadInTheLocalesNumbers();
    void cellsThatAreNoPointsAreSkipped_data();
    void cellsThatAreNoPointsAreSkipped();
    void plainNumbersAreExact();
    void numbersAreReadAsEveryLocaleReadsThem();
};

void TestPointText::theExampleReadsAsItsTwoPoints()
{
    const QString example = "0.000:8.123:803.000:0#12.500:8.101:803.000:0";
    const CurveTrace trace = decoded(example);
    QCOMPARE(trace.points, QVector<QPointF>({{0.0, 8.123}, {12.5, 8.101}}));
    QCOMPARE(trace.refs[1].irradiance, 803.0);
    QCOMPARE(pointText(trace), example);
}

void TestPointText::anEmptyTextHasNoPoints()
{
    QVERIFY(decoded("").isEmpty());
    QVERIFY(decoded(QString()).isEmpty());
}

void TestPointText::aStraySeparatorIsAPointAtTheOriginUnder1000()
{
    const CurveTrace trace = decoded("1.000:2.000:803.000:0#");
    QCOMPARE(trace.size(), 2);
    QCOMPARE(trace.points.at(1), QPointF(0, 0));
    QCOMPARE(trace.refs[1].irradiance, 1000.0);
}

void TestPointText::whatAPointLacksTakesItsDefault_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QPointF>("point");
    QTest::addColumn<double>("irradiance");
    QTest::newRow("voltage alone") << "5" << QPointF(5, 0) << 1000.0;
    QTest::newRow("no irradiance") << "5:3" << QPointF(5, 3) << 1000.0;
    QTest::newRow("all but the tag") << "5:3:800" << QPointF(5, 3) << 800.0;
    QTest::newRow("no voltage") << "x:3:800:1" << QPointF(0, 0) << 1000.0;
    QTest::newRow("no current") << "5:x:800:1" << QPointF(5, 0) << 1000.0;
    QTest::newRow("irradiance that is no number") << "5:3:x:1" << QPointF(5, 3) << 0.0;
    QTest::newRow("empty irradiance") << "5:3::1" << QPointF(5, 3) << 0.0;
    QTest::newRow("tag that is no number") << "5:3:800:x" << QPointF(5, 3) << 800.0;
    QTest::newRow("values too many") << "5:3:800:1:9:9" << QPointF(5, 3) << 800.0;
    QTest::newRow("separators alone") << ":::" << QPointF(0, 0) << 1000.0;
}

void TestPointText::whatAPointLacksTakesItsDefault()
{
    QFETCH(QString, text);
    const CurveTrace trace = decoded(text);
    QCOMPARE(trace.size(), 1);
    QTEST(trace.points.first(), "point");
    QTEST(trace.refs.front().irradiance, "irradiance");
}

void TestPointText::theTagIsDroppedAtLoading()
{
    QCOMPARE(decoded("1:2:3:7").refs.front().tag, 0);
}

void TestPointText::strangeNumbersReadAsTheToolkitReadsThem_data()
{
    QTest::addColumn<QString>("text");
    for (const char *text : {"1,234.5:2",
                             "1,23.5:2",
                             "-0.000:-1.5",
                             "+5:2",
                             " 5:2",
                             "5 :2",
                             "5.:2",
                             ".5:2",
                             "1e3:2E-2",
                             "1e999:2",
                             "nan:1",
                             "inf:-inf:inf",
                             "00012.5:1",
                             "123456789012345678:1",
                             "0.1234567890123456789:1",
                             "999999999999999:1",
                             "9999999999999999:1",
                             "12.3.4:1",
                             "--5:1",
                             "-:1",
                             "5-:1",
                             "1_000:1",
                             "\xd9\xa1:1"})
        QTest::newRow(text) << QString::fromUtf8(text);
}

void TestPointText::strangeNumbersReadAsTheToolkitReadsThem()
{
    QFETCH(QString, text);
    QVERIFY(same(decoded(text), plainlyDecoded(text)));
}

void TestPointText::randomTextsReadAsTheToolkitReadsThem()
{
    const QString alphabet = "0123456789.:#,-+eE x";
    std::mt19937 random(5);
    for (int round = 0; round < 20000; ++round) {
        QString text;
        for (unsigned length = random() % 40; length > 0; --length)
            text += alphabet.at(int(random() % unsigned(alphabet.size())));
        QVERIFY2(same(decoded(text), plainlyDecoded(text)), qPrintable(text));
    }
}

void TestPointText::tooManyPointsAreRefusedAndAddNone()
{
    CurveTrace trace;
    QVERIFY(!appendPoints(QString(maximalPointCount, '#'), trace));
    QVERIFY(trace.isEmpty());
    QVERIFY(appendPoints(QString(maximalPointCount - 1, '#'), trace));
    QCOMPARE(trace.size(), maximalPointCount);
}

void TestPointText::pointsAreWrittenWithThreeDecimalsAndNoSeparatorAtTheEnd()
{
    CurveTrace trace;
    trace.addPoint(1234.56789, 0.0004, 0, 3);
    trace.addPoint(-0.5, 8, 999.9996, -2);
    QCOMPARE(pointText(trace), QString("1234.568:0.000:0.000:3#-0.500:8.000:1000.000:-2"));
}

void TestPointText::noPointsAreAnEmptyTextThatIsNotNull()
{
    const QString text = pointText(CurveTrace());
    QVERIFY(text.isEmpty());
    QVERIFY(!text.isNull());
}

void TestPointText::numbersAreWrittenAsTheToolkitWritesThem()
{
    std::mt19937 random(7);
    std::uniform_real_distribution<double> wide(-20000.0, 20000.0);
    QVector<double> values{0.0,         -0.0,   0.0625, 0.1875,
                           -0.0625,     0.0005, 0.4995, 1e12,
                           1e15,        1e300,  -1e-9,  std::numeric_limits<double>::infinity(),
                           std::nan("")};
    for (int i = 0; i < 20000; ++i)
        values.append(i % 2 ? wide(random) : std::round(wide(random) * 1000) / 1000);
    for (const double value : values) {
        CurveTrace trace;
        trace.addPoint(value, 1, 2, 3);
        QCOMPARE(pointText(trace), QLocale::c().toString(value, 'f', 3) + ":1.000:2.000:3");
    }
}

void TestPointText::writtenPointsReadBackUnchanged()
{
    std::mt19937 random(11);
    CurveTrace trace;
    for (int i = 0; i < 5000; ++i)
        trace.addPoint(random() % 1000000 / 1000.0, random() % 20000 / 1000.0, random() % 1200000 / 1000.0,
                       0);
    QVERIFY(same(decoded(pointText(trace)), trace));
}

void TestPointText::cellsAreReadInTheLocalesNumbers_data()
{
    QTest::addColumn<QString>("locale");
    QTest::addColumn<QString>("cell");
    QTest::addColumn<QVector<double>>("values");
    const QVector<double> full{12.5, 8.101, 803.25, 3};
    QTest::newRow("English") << "en"
                             << "12.500:8.101:803.250:3" << full;
    QTest::newRow("German") << "de"
                            << "12,500:8,101:803,250:3" << full;
    QTest::newRow("German with English numbers")
        << "de"
        << "12.500:8.101:803.250:3" << QVector<double>({12500, 8101, 803250, 3});
    QTest::newRow("two values") << "en"
                                << "12.5:8.101" << QVector<double>({12.5, 8.101, 0, 0});
    QTest::newRow("three values") << "en"
                                  << "12.5:8.101:803.25" << QVector<double>({12.5, 8.101, 803.25, 0});
    QTest::newRow("five values") << "en"
                                 << "12.5:8.101:803.25:3:x" << full;
    QTest::newRow("negative") << "en"
                              << "-0.5:-0.1:0:-4" << QVector<double>({-0.5, -0.1, 0, -4});
}

void TestPointText::cellsAreReadInTheLocalesNumbers()
{
    QFETCH(QString, locale);
    QFETCH(QString, cell);
    QFETCH(QVector<double>, values);
    const auto point = PointCellReader(QLocale(locale)).read(cell);
    QVERIFY(point.has_value());
    QCOMPARE(QVector<double>({point->voltage, point->current, point->irradiance, double(point->tag)}),
             values);
}

void TestPointText::cellsThatAreNoPointsAreSkipped_data()
{
    QTest::addColumn<QString>("cell");
    for (const char *cell : {"", "12.5", "12,5:8.1x", "x:8.1", "12.5:", ":", "12.5:8.1:", "12.5:8.1:803:",
                             "12.5:8.1:803:1.5", "12.5:8.1:x", "12.5:8.1:803:x"})
        QTest::newRow(cell) << cell;
}

void TestPointText::cellsThatAreNoPointsAreSkipped()
{
    QFETCH(QString, cell);
    QVERIFY(!PointCellReader(QLocale("en")).read(cell).has_value());
}

void TestPointText::plainNumbersAreExact()
{
    std::mt19937_64 random(13);
    for (int round = 0; round < 20000; ++round) {
        QString text = QString::number(random() % 1000000000000000ULL);
        if (round % 3 && text.size() > 1)
            text.insert(1 + int(random() % unsigned(text.size() - 1)), '.');
        const auto value = plainNumber(text.cbegin(), text.cend(), QLatin1Char('.'));
        QVERIFY2(value.has_value(), qPrintable(text));
        QVERIFY2(same(*value, text.toDouble()), qPrintable(text));
    }
}

void TestPointText::numbersAreReadAsEveryLocaleReadsThem()
{
    const QString characters = QString::fromUtf8("0123456789.,-+ e\xe2\x88\x92\xd9\xa1\xd9\xab\xc2\xa0'");
    std::mt19937 random(17);
    const auto locales =
        QLocale::matchingLocales(QLocale::AnyLanguage, QLocale::AnyScript, QLocale::AnyCountry);
    QVERIFY(locales.size() > 100);
    for (const QLocale &locale : locales) {
        const NumberReader reader(locale);
        QStringList texts{"",      "0",       "-0",      "0.35", "0,35", "-0.15",
                          "-0,15", "1.234,5", "1,234.5", "1000", "007.", ".5",
                          "-.5",   "--1",     "nan",     "inf",  "1e3",  "12345678901234567"};
        texts << locale.toString(0.00125, 'g', 6) << locale.toString(-1234.5, 'f', 2) << QString();
        for (int round = 0; round < 50; ++round) {
            QString text;
            for (unsigned length = random() % 9; length > 0; --length)
                text += characters.at(int(random() % unsigned(characters.size())));
            texts << text;
        }
        for (const QString &text : qAsConst(texts)) {
            bool isNumber = false;
            const double value = locale.toDouble(text, &isNumber);
            const auto read = reader.read(text);
            QVERIFY2(read.has_value() == isNumber && (!isNumber || same(*read, value)),
                     qPrintable(locale.name() + ": " + text));
        }
    }
}

KELMAR_TEST_MAIN(TestPointText)
#include "tst_pointtext.moc"

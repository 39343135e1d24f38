#include "report/file/ReportFile.h"
#include "tests/support/TestMain.h"

#include <QFile>
#include <QRandomGenerator>
#include <QtEndian>
#include <QtTest>

#include <zlib.h>

namespace {

constexpr qint64 MiB = 1024 * 1024;

QByteArray bigEndian(quint32 value)
{
    QByteArray bytes(4, Qt::Uninitialized);
    qToBigEndian(value, bytes.data());
    return bytes;
}

/// The container of a stream, with a prefix of one's choice.
QByteArray containerOf(const QByteArray &stream, quint32 prefix)
{
    uLongf size = compressBound(uLong(stream.size()));
    QByteArray deflated(int(size), Qt::Uninitialized);
    compress(reinterpret_cast<Bytef *>(deflated.data()), &size,
             reinterpret_cast<const Bytef *>(stream.data()), uLong(stream.size()));
    deflated.resize(int(size));
    return bigEndian(prefix) + deflated;
}

QByteArray containerOf(const QByteArray &stream)
{
    return containerOf(stream, quint32(stream.size()));
}

/// The entry stream inside a container, taken out by zlib alone.
QByteArray streamOf(const QByteArray &container)
{
    uLongf size = qFromBigEndian<quint32>(container.constData());
    QByteArray stream(int(size), Qt::Uninitialized);
    const int result =
        uncompress(reinterpret_cast<Bytef *>(stream.data()), &size,
                   reinterpret_cast<const Bytef *>(container.data() + 4), uLong(container.size() - 4));
    return result == Z_OK && size == uLong(stream.size()) ? stream : QByteArray("no zlib stream");
}

/// The container of so many zero bytes, made without holding them.
QByteArray zeros(qint64 count)
{
    QByteArray chunk(int(MiB), '\0');
    QByteArray deflated(int(count / 500), Qt::Uninitialized);
    z_stream stream{};
    deflateInit(&stream, 1);
    stream.next_out = reinterpret_cast<Bytef *>(deflated.data());
    stream.avail_out = uInt(deflated.size());
    for (qint64 done = 0; done < count; done += MiB) {
        stream.next_in = reinterpret_cast<Bytef *>(chunk.data());
        stream.avail_in = uInt(qMin(MiB, count - done));
        deflate(&stream, done + MiB >= count ? Z_FINISH : Z_NO_FLUSH);
    }
    deflated.resize(int(stream.total_out));
    deflateEnd(&stream);
    return bigEndian(quint32(count)) + deflated;
}

QByteArray nameBytes(const QString &name)
{
    QByteArray bytes(name.size() * 2, Qt::Uninitialized);
    qToBigEndian<ushort>(name.constData(), name.size(), bytes.data());
    return bigEndian(quint32(bytes.size())) + bytes;
}

QByteArray entryBytes(const QString &name, const QByteArray &data)
{
    return nameBytes(name) + bigEndian(quint32(data.size())) + data;
}

/// A figure of this process in bytes: "VmPeak" for the address space, "VmHWM" for the memory used.
qint64 processFigure(const QByteArray &name)
{
    const QList<QByteArray> lines = readFile(QStringLiteral("/proc/self/status")).split('\n');
    for (const QByteArray &line : lines) {
        if (line.startsWith(name + ':'))
            return line.mid(name.size() + 1).simplified().split(' ').first().toLongLong() * 1024;
    }
    QTest::qFail("no such figure", __FILE__, __LINE__);
    return 0;
}

const QByteArray twoEntries = entryBytes("xml", "<document/>") + entryBytes("svg", "<svg/>");

} // namespace

class TestReportFile : public QObject
{
    Q_OBJECT

private slots:
    void aContainerIsALengthAndOneZlibStreamOfTheDefaultLevel();
    void anEntryIsNameAndDataEachBehindItsLengthInBytes();
    void twoEntriesOfKnownSizesAddUpToTheLengthInFront();
    void nullAndEmptyNamesAndDataKeepTheirDifference();
    void namesOfAnyScriptAndDataOfAnyByteComeBack();
    void aFileKeepsItsEntriesInOrder();
    void readingAppendsToTheEntriesAlreadyThere();
    void writingReplacesALongerFileCompletely();
    void writingToAPathThatCannotBeOpenedReturnsFalseAndTouchesNothing_data();
    void writingToAPathThatCannotBeOpenedReturnsFalseAndTouchesNothing();
    void aFailedWriteAfterASuccessfulOpenGoesUnnoticed();
    void whatCannotBeOpenedOrHoldsNoEntryIsAFailureToRead_data();
    void whatCannotBeOpenedOrHoldsNoEntryIsAFailureToRead();
    void aContainerCutAnywhereGivesNoEntries();
    void aStreamCutInsideAnEntryGivesTheEntriesBeforeIt();
    void aCutInsideTheFirstEntryIsAFailureToRead();
    void anyByteDamagedInTheDeflatedDataIsAFailureToRead();
    void bytesBehindTheZlibStreamAreIgnored();
    void theLengthInFrontIsOnlyAHint_data();
    void theLengthInFrontIsOnlyAHint();
    void aHugeLengthInFrontOfATinyFileReservesNothing();
    void sixHundredMegabytesOfZerosAreAFailureWithinBoundedMemory();
    void aStreamOfTensOfMegabytesIsRead();
    void aLengthBeyondTheDataEndsTheEntries_data();
    void aLengthBeyondTheDataEndsTheEntries();
    void aNameOfHalfACharacterEndsTheEntries();
    void moreThanAMillionEntriesAreRefused();
};

void TestReportFile::aContainerIsALengthAndOneZlibStreamOfTheDefaultLevel()
{
    const QByteArray container = packReportEntries({{"xml", "<document/>"}});
    const QByteArray stream = entryBytes("xml", "<document/>");
    QCOMPARE(container.left(4), bigEndian(quint32(stream.size())));
    QCOMPARE(container.mid(4, 2), QByteArray("\x78\x9c"));
    QCOMPARE(container, containerOf(stream));
}

void TestReportFile::anEntryIsNameAndDataEachBehindItsLengthInBytes()
{
    const QByteArray stream = streamOf(packReportEntries({{"xml", "<d/>"}}));
    QCOMPARE(stream.toHex(' '), QByteArray("00 00 00 06 00 78 00 6d 00 6c 00 00 00 04 3c 64 2f 3e"));
}

void TestReportFile::twoEntriesOfKnownSizesAddUpToTheLengthInFront()
{
    const QByteArray container =
        packReportEntries({{"xml", QByteArray(878, 'x')}, {"svg", QByteArray(16353, 's')}});
    QCOMPARE(container.left(4).toHex(), QByteArray("0000436b"));
    QCOMPARE(streamOf(container).size(), 17259);
}

void TestReportFile::nullAndEmptyNamesAndDataKeepTheirDifference()
{
    const ReportFileEntries written = {{QString(), QByteArray()}, {QString(""), QByteArray("")}};
    const QByteArray container = packReportEntries(written);
    QCOMPARE(streamOf(container).toHex(), QByteArray("ffffffffffffffff0000000000000000"));

    const ReportFileEntries read = unpackReportEntries(container);
    QCOMPARE(read.size(), 2);
    QVERIFY(read.at(0).name.isNull());
    QVERIFY(read.at(0).data.isNull());
    QVERIFY(read.at(1).name.isEmpty() && !read.at(1).name.isNull());
    QVERIFY(read.at(1).data.isEmpty() && !read.at(1).data.isNull());
    QCOMPARE(packReportEntries(read), container);
}

void TestReportFile::namesOfAnyScriptAndDataOfAnyByteComeBack()
{
    const QString name = QStringLiteral("Prüfung Ω \U0001F31E");
    QByteArray data;
    for (int i = 0; i < 3 * 256; ++i)
        data.append(char(i));
    const ReportFileEntries read = unpackReportEntries(packReportEntries({{name, data}}));
    QCOMPARE(read.size(), 1);
    QCOMPARE(read.first().name, name);
    QCOMPARE(read.first().data, data);
}

void TestReportFile::aFileKeepsItsEntriesInOrder()
{
    const QString path = TestHome::instance()->path("order.kelatr");
    QByteArray picture(300000, Qt::Uninitialized);
    QRandomGenerator random(1);
    for (char &byte : picture)
        byte = char(random.generate());
    QVERIFY(writeReportFileEntries({{"xml", "<document/>"}, {"png", picture}, {"jpg", "second"}}, path));

    ReportFileEntries read;
    QVERIFY(readReportFileEntries(path, read));
    QCOMPARE(read.size(), 3);
    QCOMPARE(read.at(0).name, QString("xml"));
    QCOMPARE(read.at(1).name, QString("png"));
    QCOMPARE(read.at(1).data, picture);
    QCOMPARE(read.at(2).data, QByteArray("second"));
}

void TestReportFile::readingAppendsToTheEntriesAlreadyThere()
{
    const QString path = TestHome::instance()->path("append.kelatr");
    QVERIFY(writeReportFileEntries({{"xml", "new"}}, path));
    ReportFileEntries entries = {{"xml", "old"}};
    QVERIFY(readReportFileEntries(path, entries));
    QCOMPARE(entries.size(), 2);
    QCOMPARE(entries.at(0).data, QByteArray("old"));
    QCOMPARE(entries.at(1).data, QByteArray("new"));
}

void TestReportFile::writingReplacesALongerFileCompletely()
{
    const QString path = TestHome::instance()->path("longer.kelatr");
    writeFile(path, QByteArray(100000, 'x'));
    const ReportFileEntries entries = {{"xml", "<document/>"}};
    QVERIFY(writeReportFileEntries(entries, path));
    QCOMPARE(readFile(path), packReportEntries(entries));
}

void TestReportFile::writingToAPathThatCannotBeOpenedReturnsFalseAndTouchesNothing_data()
{
    QTest::addColumn<QString>("path");
    QTest::newRow("folder missing") << TestHome::instance()->path("missing/report.kelatr");
    QTest::newRow("a folder") << TestHome::instance()->path();
    // Read-only for every user, whatever the rights of the one who runs the test.
    QTest::newRow("read-only") << QStringLiteral(":/qt-project.org/qmime/packages/freedesktop.org.xml");
    QTest::newRow("no name") << QString();
}

void TestReportFile::writingToAPathThatCannotBeOpenedReturnsFalseAndTouchesNothing()
{
    QFETCH(QString, path);
    const bool existed = QFileInfo::exists(path);
    QVERIFY(!writeReportFileEntries({{"xml", "<document/>"}}, path));
    QCOMPARE(QFileInfo::exists(path), existed);
    QVERIFY(!QFileInfo::exists(TestHome::instance()->path("missing")));
}

void TestReportFile::aFailedWriteAfterASuccessfulOpenGoesUnnoticed()
{
    // A device that is always full.
    QVERIFY(writeReportFileEntries({{"xml", QByteArray(100000, 'x')}}, QStringLiteral("/dev/full")));
}

void TestReportFile::whatCannotBeOpenedOrHoldsNoEntryIsAFailureToRead_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("empty file") << QByteArray("");
    QTest::newRow("length only") << bigEndian(0);
    QTest::newRow("five bytes") << bigEndian(1) + "x";
    QTest::newRow("no zlib stream") << bigEndian(100) + QByteArray(100, 'x');
    QTest::newRow("text") << QByteArray("<?xml version=\"1.0\"?><document/>");
    QTest::newRow("no entries") << containerOf(QByteArray());
    QTest::newRow("gzip magic") << bigEndian(100) + QByteArray::fromHex("1f8b0800000000000003");
    QTest::newRow("raw deflate") << bigEndian(18) + containerOf(twoEntries).mid(6);
    QTest::newRow("preset dictionary")
        << bigEndian(18) + QByteArray::fromHex("78bb00000000") + QByteArray(50, 'x');
}

void TestReportFile::whatCannotBeOpenedOrHoldsNoEntryIsAFailureToRead()
{
    QFETCH(QByteArray, bytes);
    const QString path = TestHome::instance()->path("bad.kelatr");
    writeFile(path, bytes);
    ReportFileEntries entries;
    QVERIFY(!readReportFileEntries(path, entries));
    QVERIFY(entries.isEmpty());
    QVERIFY(!readReportFileEntries(path + ".missing", entries));
    QVERIFY(!readReportFileEntries(TestHome::instance()->path(), entries));
    QVERIFY(entries.isEmpty());
}

void TestReportFile::aContainerCutAnywhereGivesNoEntries()
{
    const QByteArray container = containerOf(twoEntries);
    for (int size = 0; size < container.size(); ++size)
        QVERIFY2(unpackReportEntries(container.left(size)).isEmpty(), qPrintable(QString::number(size)));
    QCOMPARE(unpackReportEntries(container).size(), 2);
}

void TestReportFile::aStreamCutInsideAnEntryGivesTheEntriesBeforeIt()
{
    const int first = entryBytes("xml", "<document/>").size();
    for (int size = first; size < twoEntries.size(); ++size) {
        const ReportFileEntries entries = unpackReportEntries(containerOf(twoEntries.left(size)));
        QCOMPARE(entries.size(), 1);
        QCOMPARE(entries.first().data, QByteArray("<document/>"));
    }
}

void TestReportFile::aCutInsideTheFirstEntryIsAFailureToRead()
{
    const QByteArray stream = entryBytes("xml", "<document/>");
    const QString path = TestHome::instance()->path("cut.kelatr");
    for (int size = 0; size < stream.size(); ++size) {
        writeFile(path, containerOf(stream.left(size)));
        ReportFileEntries entries;
        QVERIFY2(!readReportFileEntries(path, entries), qPrintable(QString::number(size)));
        QVERIFY(entries.isEmpty());
    }
}

void TestReportFile::anyByteDamagedInTheDeflatedDataIsAFailureToRead()
{
    const QByteArray container = containerOf(twoEntries);
    // The first two bytes of the zlib stream are its header, some of whose values are as good as others.
    for (int i = 6; i < container.size(); ++i) {
        QByteArray damaged = container;
        damaged[i] = char(damaged.at(i) ^ 0x55);
        QVERIFY2(unpackReportEntries(damaged).isEmpty(), qPrintable(QString::number(i)));
    }
}

void TestReportFile::bytesBehindTheZlibStreamAreIgnored()
{
    for (const QByteArray &more : {QByteArray("x"), QByteArray(100000, '\0'), containerOf(twoEntries)}) {
        const ReportFileEntries entries = unpackReportEntries(containerOf(twoEntries) + more);
        QCOMPARE(entries.size(), 2);
        QCOMPARE(entries.at(1).data, QByteArray("<svg/>"));
    }
}

void TestReportFile::theLengthInFrontIsOnlyAHint_data()
{
    QTest::addColumn<quint32>("prefix");
    for (const quint32 prefix :
         {0u, 1u, 1023u, 1024u, 99999u, 100001u, 0x7fffff00u, 0x80000000u, 0xffffffffu})
        QTest::addRow("%08x", prefix) << prefix;
}

void TestReportFile::theLengthInFrontIsOnlyAHint()
{
    QFETCH(quint32, prefix);
    const QByteArray data(100000, 'x');
    const ReportFileEntries entries = unpackReportEntries(containerOf(entryBytes("xml", data), prefix));
    QCOMPARE(entries.size(), 1);
    QCOMPARE(entries.first().data, data);
}

void TestReportFile::aHugeLengthInFrontOfATinyFileReservesNothing()
{
    const qint64 before = processFigure("VmPeak");
    QCOMPARE(unpackReportEntries(containerOf(twoEntries, 0x7fffff00)).size(), 2);
    QVERIFY(unpackReportEntries(containerOf(bigEndian(6) + "abcdef" + bigEndian(0x7fffff00), 0xffffffff))
                .isEmpty());
    QVERIFY(processFigure("VmPeak") - before < 16 * MiB);
}

void TestReportFile::sixHundredMegabytesOfZerosAreAFailureWithinBoundedMemory()
{
    QByteArray bomb = zeros(600 * MiB);
    QVERIFY(bomb.size() < 4 * MiB);
    const qint64 before = processFigure("VmHWM");
    QVERIFY(unpackReportEntries(bomb).isEmpty());
    bomb.replace(0, 4, bigEndian(1));
    QVERIFY(unpackReportEntries(bomb).isEmpty());
    const qint64 grown = processFigure("VmHWM") - before;
    // A sanitizer keeps a copy of what is moved; the toolkit alone grows in place.
    QVERIFY2(grown < 1100 * MiB, qPrintable(QString::number(grown)));
}

void TestReportFile::aStreamOfTensOfMegabytesIsRead()
{
    QByteArray stream = nameBytes("xml") + bigEndian(64 * MiB);
    stream.append(int(64 * MiB), 'x');
    for (const quint32 prefix : {quint32(stream.size()), 0u}) {
        const ReportFileEntries entries = unpackReportEntries(containerOf(stream, prefix));
        QCOMPARE(entries.size(), 1);
        QCOMPARE(entries.first().data.size(), int(64 * MiB));
    }
}

void TestReportFile::aLengthBeyondTheDataEndsTheEntries_data()
{
    QTest::addColumn<quint32>("length");
    for (const quint32 length : {7u, 8u, 0x7ffffffeu, 0x7fffffffu, 0x80000000u, 0xfffffffeu})
        QTest::addRow("%08x", length) << length;
}

void TestReportFile::aLengthBeyondTheDataEndsTheEntries()
{
    QFETCH(quint32, length);
    const QByteArray good = entryBytes("xml", "<document/>");
    const ReportFileEntries inData =
        unpackReportEntries(containerOf(good + nameBytes("png") + bigEndian(length) + "abcdef"));
    QCOMPARE(inData.size(), 1);
    const ReportFileEntries inName = unpackReportEntries(containerOf(good + bigEndian(length) + "abcdef"));
    QCOMPARE(inName.size(), 1);
    QVERIFY(unpackReportEntries(containerOf(nameBytes("xml") + bigEndian(length) + "abcdef")).isEmpty());
    QVERIFY(unpackReportEntries(containerOf(bigEndian(length) + "abcdef")).isEmpty());
}

void TestReportFile::aNameOfHalfACharacterEndsTheEntries()
{
    const QByteArray good = entryBytes("xml", "<document/>");
    const QByteArray odd = bigEndian(3) + "abc" + bigEndian(1) + "x";
    QCOMPARE(unpackReportEntries(containerOf(good + odd + good)).size(), 1);
    QVERIFY(unpackReportEntries(containerOf(odd + good)).isEmpty());
}

void TestReportFile::moreThanAMillionEntriesAreRefused()
{
    const QByteArray stream((1 << 20) * 8, '\xff');
    QCOMPARE(unpackReportEntries(containerOf(stream)).size(), 1 << 20);
    QVERIFY(unpackReportEntries(containerOf(stream + QByteArray(8, '\xff'))).isEmpty());
}

KELMAR_TEST_MAIN(TestReportFile)
#include "tst_reportfile.moc"

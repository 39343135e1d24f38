#include "app/core/DocumentType.h"
#include "app/core/Folders.h"
#include "app/core/Language.h"
#include "app/document/AbstractDocument.h"
#include "app/shell/DocumentFactory.h"
#include "curve/data/CurveDatabase.h"
#include "curve/data/CurveGraphModel.h"
#include "curve/data/ModuleDatabase.h"
#include "diagram/DiagramGraphicsScene.h"
#include "diagram/PanelDiagramComponent.h"
#include "import/CsvResultsModel.h"
#include "report/GraphicalReportDocument.h"
#include "report/ReportScene.h"
#include "report/file/ReportFile.h"
#include "report/items/ReportTable.h"
#include "report/items/ReportTableCell.h"
#include "res/Resources.h"
#include "tests/support/BoxWatcher.h"
#include "tests/support/LocaleSwitch.h"
#include "tests/support/TestMain.h"

#include <QDirIterator>
#include <QDomDocument>
#include <QProcess>
#include <QSqlQuery>
#include <QSqlRecord>
#include <QUndoStack>

using namespace IVCurve;

namespace {

/// A job of the samples and the names of its documents.
struct Job
{
    QString language;
    QString folder;
    QString roof;
    QString certificate;

    QString file(const QString &name) const
    {
        return QStringLiteral(KELMAR_SAMPLES "/") + folder + QLatin1Char('/') + name;
    }
    QString roofFile(const char *suffix) const { return file(roof + QLatin1String(suffix)); }
    QLocale locale() const { return QLocale(language == "de" ? "de_DE" : "en_GB"); }
};

const QVector<Job> &jobs()
{
    static const QVector<Job> both{{"en", "Sunny Lane 12", "Roof south", "Verification Certificate"},
                                   {"de", "Sonnenweg 12", "Dach Süd", "Prüfbescheinigung"}};
    return both;
}

QStringList filesBelow(const QString &folder, const QStringList &patterns = {})
{
    QStringList files;
    for (QDirIterator it(folder, patterns, QDir::Files, QDirIterator::Subdirectories); it.hasNext();)
        files.append(it.next().mid(folder.size() + 1));
    files.sort();
    return files;
}

QString canonical(const QDomElement &element)
{
    QStringList attributes;
    for (int i = 0; i < element.attributes().count(); ++i) {
        const QDomAttr attribute = element.attributes().item(i).toAttr();
        attributes.append(attribute.name() + '=' + attribute.value());
    }
    attributes.sort();
    QString text = '<' + element.tagName() + ' ' + attributes.join(' ') + '>';
    for (QDomNode node = element.firstChild(); !node.isNull(); node = node.nextSibling())
        text += node.isElement() ? canonical(node.toElement()) : node.nodeValue();
    return text + '\n';
}

/// What an XML text says, whatever the order of its attributes.
QString canonical(const QByteArray &xml)
{
    QDomDocument document;
    return document.setContent(xml) ? canonical(document.documentElement()) : QStringLiteral("no XML");
}

/// What a report file holds, entry by entry.
QStringList entriesOf(const QString &path)
{
    ReportFileEntries entries;
    QStringList all;
    readReportFileEntries(path, entries);
    for (const ReportFileEntry &entry : qAsConst(entries))
        all.append(entry.name + ": " +
                   (all.isEmpty() ? canonical(entry.data) : QString::fromLatin1(entry.data.toBase64())));
    return all;
}

/// What the tables of a database hold, row by row.
QStringList rowsOf(const QString &path)
{
    QStringList rows;
    {
        QSqlDatabase database = QSqlDatabase::addDatabase("QSQLITE", "rows");
        database.setDatabaseName(path);
        database.open();
        for (const char *table : {"Curves", "TreeNodes"}) {
            QSqlQuery query("SELECT * FROM " + QString(table), database);
            while (query.next()) {
                QStringList fields;
                for (int i = 0; i < query.record().count(); ++i)
                    fields.append(query.value(i).toString());
                rows.append(fields.join('|'));
            }
        }
    }
    QSqlDatabase::removeDatabase("rows");
    return rows;
}

/// What a PDF says.
QStringList textOf(const QString &path)
{
    QProcess reader;
    reader.start("pdftotext", {"-layout", path, "-"});
    return reader.waitForFinished(patience) && reader.exitCode() == 0
               ? QString::fromUtf8(reader.readAllStandardOutput()).split('\n')
               : QStringList();
}

/// What counts of a sample file.
QStringList contentsOf(const QString &path)
{
    const QString suffix = QFileInfo(path).suffix();
    if (suffix == "csv")
        return QString::fromUtf8(readFile(path)).split("\r\n");
    if (suffix == "pdf")
        return textOf(path);
    if (suffix == "kelid")
        return {canonical(readFile(path))};
    return suffix == "kelcrv" ? rowsOf(path) : entriesOf(path);
}

/// An array test report, open.
struct TestReport
{
    explicit TestReport(const Job &job) : scene(&undoStack)
    {
        loaded = scene.load(job.roofFile(".kelatr"));
        table = dynamic_cast<ReportTable *>(scene.itemById("test_table"));
    }
    QString cell(int string, int row) const { return table->cellAt(string + 1, row)->plainText(); }

    QUndoStack undoStack;
    ReportScene scene;
    ReportTable *table = nullptr;
    bool loaded = false;
};

enum TestRow
{
    QuantityRow = 2,
    RatedVoltageRow = 3,
    RatedCurrentRow = 4,
    VoltageRow = 12,
    CurrentRow = 13,
    IrradianceRow = 14
};
constexpr int strings = 3;

} // namespace

class TestSamples : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void everyDocumentOpensWithoutAMessage_data();
    void everyDocumentOpensWithoutAMessage();
    void everyKindOfDocumentIsThereInBothLanguages();
    void aRebuildGivesTheSameEntries();
    void theModulesOfReportDiagramCurvesAndCertificateAgree_data();
    void theModulesOfReportDiagramCurvesAndCertificateAgree();
    void theReportHasWhatTheTesterMeasured_data();
    void theReportHasWhatTheTesterMeasured();
    void theMeasuredValuesFitTheModules_data();
    void theMeasuredValuesFitTheModules();
    void bothJobsAreTheSameButForTheirWords();

private:
    static void eachJob();
};

void TestSamples::initTestCase()
{
    initResources();
    writeFile(Folders::instance()->dataFolder() + "/modules.db", readFile(KELMAR_BUILD "/bin/modules.db"));
}

void TestSamples::eachJob()
{
    QTest::addColumn<int>("number");
    for (int i = 0; i < jobs().size(); ++i)
        QTest::newRow(qPrintable(jobs().at(i).language)) << i;
}

void TestSamples::everyDocumentOpensWithoutAMessage_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("language");
    for (const Job &job : jobs()) {
        for (const QString &name : filesBelow(job.file("."), {"*.kel*"}))
            QTest::newRow(qPrintable(job.folder + '/' + name)) << job.file(name) << job.language;
    }
}

void TestSamples::everyDocumentOpensWithoutAMessage()
{
    QFETCH(QString, path);
    QFETCH(QString, language);
    const LocaleSwitch locale(language == "de" ? "de_DE" : "en_GB");
    useLanguage(language, QLocale());
    BoxWatcher watcher;
    // Copies: a curve file is brought up to date when it is opened.
    const QString copy = TestHome::instance()->path("opened." + QFileInfo(path).suffix());
    writeFile(copy, readFile(path));
    std::unique_ptr<AbstractDocument> document(createDocument(copy, nullptr));
    QVERIFY(document);
    QVERIFY(document->isValid());
    QVERIFY(!document->isModified());
    document.reset();
    if (documentType(path) == DocumentType::CurveData) {
        const CurveDatabase database(copy);
        int loaded = 0;
        QSqlQuery query("SELECT CurveID FROM Curves", database.database());
        for (; query.next(); ++loaded)
            QVERIFY(database.graphModel()->loadString(query.value(0).toUInt()));
        QCOMPARE(loaded, strings);
    }
    QCOMPARE(watcher.texts(), QStringList());
}

void TestSamples::everyKindOfDocumentIsThereInBothLanguages()
{
    for (const Job &job : jobs()) {
        for (const char *suffix : {"kelir", "kelatr", "kelvc", "kelchk", "kelid", "kelcrv", "csv", "pdf"})
            QVERIFY2(!filesBelow(job.file("."), {QString("*.") + suffix}).isEmpty(), suffix);
        QCOMPARE(filesBelow(job.file("."), {"*.pdf"}).size(), 6);
    }
}

void TestSamples::aRebuildGivesTheSameEntries()
{
    const QString rebuilt = TestHome::instance()->path("rebuilt");
    QProcess script;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("KELMAR_BUILD", KELMAR_BUILD);
    script.setProcessEnvironment(environment);
    script.setProcessChannelMode(QProcess::MergedChannels);
    script.start(KELMAR_SAMPLES "/rebuild.sh", {rebuilt});
    QVERIFY(script.waitForFinished(110000));
    QVERIFY2(script.exitCode() == 0, script.readAll().constData());
    for (const Job &job : jobs()) {
        const QStringList names = filesBelow(job.file(QString()).chopped(1));
        QVERIFY(names.size() >= 12);
        QCOMPARE(filesBelow(rebuilt + '/' + job.folder), names);
        for (const QString &name : names) {
            const QStringList expected = contentsOf(job.file(name));
            QVERIFY2(!expected.isEmpty(), qPrintable(name));
            QVERIFY2(contentsOf(rebuilt + '/' + job.folder + '/' + name) == expected,
                     qPrintable(name + " would be another one: run samples/rebuild.sh and look at it"));
        }
    }
}

void TestSamples::theModulesOfReportDiagramCurvesAndCertificateAgree_data()
{
    eachJob();
}

void TestSamples::theModulesOfReportDiagramCurvesAndCertificateAgree()
{
    QFETCH(int, number);
    const Job &job = jobs().at(number);
    const TestReport report(job);
    QVERIFY(report.loaded);
    const QString copy = TestHome::instance()->path("agreeing.kelcrv");
    writeFile(copy, readFile(job.roofFile(".kelcrv")));
    const CurveDatabase curves(copy);

    QVector<CurveModuleRow> modules;
    QVERIFY(ModuleDatabase::instance().table()->allRows(modules));
    int total = 0;
    double power = 0.0;
    QSqlQuery query("SELECT ModuleID, ModuleSeries FROM Curves ORDER BY TestDate", curves.database());
    for (int string = 1; string <= strings; ++string) {
        QVERIFY(query.next());
        const int quantity = report.cell(string, QuantityRow).toInt();
        QCOMPARE(query.value(1).toInt(), quantity);
        const auto module =
            std::find_if(modules.cbegin(), modules.cend(),
                         [&query](const CurveModuleRow &row) { return row.id == query.value(0).toUInt(); });
        QVERIFY(module != modules.cend());
        QCOMPARE(report.cell(string, RatedVoltageRow),
                 job.locale().toString(quantity * module->Voc.toDouble(), 'f', 1));
        QCOMPARE(report.cell(string, RatedCurrentRow), job.locale().toString(module->Isc.toDouble(), 'f', 2));
        total += quantity;
        power += quantity * module->Vmp.toDouble() * module->Imp.toDouble() / 1000.0;
    }
    QVERIFY(!query.next());

    DiagramGraphicsScene diagram;
    QVERIFY(diagram.load(job.roofFile(".kelid")));
    int panels = 0;
    for (const QGraphicsItem *item : diagram.items())
        panels += dynamic_cast<const PanelDiagramComponent *>(item) ? 1 : 0;
    QCOMPARE(panels, total);

    QUndoStack undoStack;
    ReportScene certificate(&undoStack);
    QVERIFY(certificate.load(job.file(job.certificate + ".kelvc")));
    const auto *rated = dynamic_cast<ReportText *>(certificate.itemById("rated_power"));
    QCOMPARE(rated->plainText(), job.locale().toString(power, 'f', 1));
}

void TestSamples::theReportHasWhatTheTesterMeasured_data()
{
    eachJob();
}

void TestSamples::theReportHasWhatTheTesterMeasured()
{
    QFETCH(int, number);
    const Job &job = jobs().at(number);
    const LocaleSwitch locale(job.locale().name());
    const TestReport report(job);
    QFile file(job.roofFile(".csv"));
    QVERIFY(file.open(QIODevice::ReadOnly));
    CsvResultsModel results;
    QVERIFY(results.load(&file));
    for (int string = 1; string <= strings; ++string) {
        // The automatic test is the second of each string's five.
        const int row = (string - 1) * 5 + 1;
        const QVector<QPair<int, QString>> columns{
            {VoltageRow, "Voc (VDC)"}, {CurrentRow, "Isc (ADC)"}, {IrradianceRow, "Irr (W/m2)"}};
        for (const auto &column : columns) {
            int place = 0;
            while (results.headerData(place, Qt::Horizontal).toString().trimmed() != column.second)
                QVERIFY(++place < results.columnCount());
            QCOMPARE(report.cell(string, column.first), results.index(row, place).data().toString());
        }
    }
}

void TestSamples::theMeasuredValuesFitTheModules_data()
{
    eachJob();
}

void TestSamples::theMeasuredValuesFitTheModules()
{
    QFETCH(int, number);
    const Job &job = jobs().at(number);
    const TestReport report(job);
    const auto value = [&](int string, TestRow row) {
        return job.locale().toDouble(report.cell(string, row));
    };
    for (int string = 1; string <= strings; ++string) {
        const double current = value(string, RatedCurrentRow) * value(string, IrradianceRow) / 1000.0;
        QVERIFY(qAbs(value(string, CurrentRow) / current - 1.0) < 0.03);
        // Warm cells under less than the full sun give some per cent less than the rated voltage.
        const double share = value(string, VoltageRow) / value(string, RatedVoltageRow);
        QVERIFY(share > 0.88 && share < 0.98);
    }
}

void TestSamples::bothJobsAreTheSameButForTheirWords()
{
    const TestReport english(jobs().first());
    const TestReport german(jobs().last());
    for (int row = QuantityRow; row <= 19; ++row) {
        for (int string = 1; string <= 6; ++string) {
            const QString cell = english.cell(string, row);
            bool isNumber = false;
            cell.toDouble(&isNumber);
            if (isNumber || cell.isEmpty())
                QCOMPARE(german.cell(string, row).replace(',', '.'), cell);
            else
                QVERIFY(!german.cell(string, row).isEmpty());
        }
    }
    QCOMPARE(readFile(jobs().last().roofFile(".csv")),
             readFile(jobs().first().file("Roof south (German).csv")));
    QCOMPARE(filesBelow(jobs().last().file("."), {"*.kel*"}).size(),
             filesBelow(jobs().first().file("."), {"*.kel*"}).size());
}

KELMAR_TEST_MAIN(TestSamples)
#include "tst_samples.moc"

#include "report/ReportScene.h"

#include "app/core/DocumentType.h"
#include "report/items/AbstractReportItem.h"
#include "report/items/ReportCheckBox.h"
#include "report/items/ReportText.h"
#include "tests/report/OpenReport.h"
#include "tests/report/ReportForm.h"
#include "tests/report/ReportSample.h"
#include "tests/support/TestMain.h"

#include <QGraphicsTextItem>

#include <memory>

using namespace ReportSample;

namespace {

const char drawing[] =
    R"(<svg xmlns="http://www.w3.org/2000/svg" width="4" height="2"><rect width="4" height="2"/></svg>)";

QByteArray imageElement(const char *index, const char *x)
{
    return QByteArray(R"(<image resizable="1" width="40" height="20" scale="10" y="0" index=")") + index +
           "\" x=\"" + x + "\"/>";
}

} // namespace

/// What saved reports hold, read back by a reader of the tests' own, and what of it counts at the next
/// opening.
class TestReportSaving : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { m_form = std::make_unique<ReportForm>(); }
    void cleanupTestCase() { m_form.reset(); }

    void aSavedFileHoldsEveryItemWholeBelowItsPage();
    void fullFormAndOverlayFormOfTheSameContentLoadToTheSameScene();
    void savingTwiceGivesTheSameBytes();
    void aDocumentStaysWithTheTemplateItWasMadeFrom();
    void pageTypeInASavedFileIsA4AlsoForAnA3Page();
    void imagesAreRenumberedInTheOrderOfTheScene();
    void imagesGoBackToTheFileByteForByte();
    void labelsAndPlacesInTheFileAreNotReadBack();
    void textOfAllKindsSurvives_data();
    void textOfAllKindsSurvives();
    void charactersThatXmlCannotHoldAreLeftOut();
    void savingEndsAnEditInProgress();
    void everyFormIsFilledSavedAndOpenedAgain_data();
    void everyFormIsFilledSavedAndOpenedAgain();
    void anArrayTestReportWithoutResPakIsOneOfTheFirstRevision();
    void savingOverALongerFileLeavesNothingOfIt();

private:
    std::unique_ptr<ReportForm> m_form;
};

void TestReportSaving::aSavedFileHoldsEveryItemWholeBelowItsPage()
{
    OpenReport report;
    QVERIFY(report.scene.load(reportFile(ReportForm::document(
        R"(<page id="page1"><text id="client">Sunny Farm</text><checkBox id="done" checked="true"/><table id="grid"><cell col="2" row="1">812</cell></table></page>)"))));
    QVERIFY(report.scene.save(reportPath()));
    QCOMPARE(read(reportPath()).size(), 1);
    const QDomDocument saved = readXml(reportPath());
    const QDomElement root = saved.documentElement();
    QCOMPARE(root.tagName(), QStringLiteral("document"));
    QCOMPARE(root.attributes().size(), 1);
    QCOMPARE(root.attribute(QStringLiteral("resPak")), ReportForm::path());
    QCOMPARE(root.childNodes().size(), 2);
    QStringList below;
    for (QDomElement child = root.firstChildElement().firstChildElement(); !child.isNull();
         child = child.nextSiblingElement())
        below.append(child.tagName());
    QCOMPARE(below.join(QLatin1Char(' ')), QStringLiteral("text text checkBox table text"));
    const QDomElement client = elementById(saved, QStringLiteral("client"));
    QCOMPARE(client.text(), QStringLiteral("Sunny Farm"));
    QCOMPARE(client.attribute(QStringLiteral("x")).toDouble(), 40.0);
    QCOMPARE(client.attribute(QStringLiteral("y")).toDouble(), 80.0);
    QCOMPARE(client.attribute(QStringLiteral("width")).toDouble(), 300.0);
    QCOMPARE(client.attribute(QStringLiteral("editable")), QStringLiteral("1"));
    // Inherited, so it stays inherited.
    QVERIFY(!client.hasAttribute(QStringLiteral("fontSize")));
    QCOMPARE(elementById(saved, QStringLiteral("done")).attribute(QStringLiteral("checked")),
             QStringLiteral("true"));
    QStringList cells;
    for (const QDomElement &cell : elements(saved, QStringLiteral("cell")))
        cells.append(cell.attribute(QStringLiteral("col")) + QLatin1Char('/') +
                     cell.attribute(QStringLiteral("row")) + QLatin1Char('=') + cell.text());
    cells.sort();
    QCOMPARE(cells, QStringList({QStringLiteral("0/1=Voc (V)"), QStringLiteral("2/1=812")}));
}

void TestReportSaving::fullFormAndOverlayFormOfTheSameContentLoadToTheSameScene()
{
    const QByteArray xml = ReportForm::xml(
        R"(<page id="page1"><text id="client">Sunny Farm</text>
        <checkBox id="done" checked="true"/><table id="grid"><cell col="2" row="1">812</cell></table>)" +
        imageElement("1", "7") + R"(</page><page id="page2"><text id="remarks">None</text></page>)");
    OpenReport overlay;
    QVERIFY(overlay.scene.load(reportFile(pack(xml, {{QStringLiteral("png"), png(4, 2)}}))));
    const QString full = reportPath(QStringLiteral("full.kelatr"));
    QVERIFY(overlay.scene.save(full));
    OpenReport whole;
    QVERIFY(whole.scene.load(full));
    QCOMPARE(whole.scene.items().size(), overlay.scene.items().size());
    for (const char *id : {"client", "notes", "remarks", "done", "Voc"})
        QCOMPARE(textOf(whole.scene, id), textOf(overlay.scene, id));
    QCOMPARE(cellText(whole.scene, "grid", 2, 1), QStringLiteral("812"));
    QCOMPARE(whole.scene.sceneRect(), overlay.scene.sceneRect());
    const QString again = reportPath(QStringLiteral("again.kelatr"));
    QVERIFY(whole.scene.save(again));
    QCOMPARE(readFile(again), readFile(full));
}

void TestReportSaving::savingTwiceGivesTheSameBytes()
{
    OpenReport report;
    QVERIFY(report.scene.load(reportFile(ReportForm::document(QByteArray()))));
    QVERIFY(report.scene.save(reportPath()));
    const QByteArray first = readFile(reportPath());
    QVERIFY(report.scene.save(reportPath()));
    QCOMPARE(readFile(reportPath()), first);
}

void TestReportSaving::aDocumentStaysWithTheTemplateItWasMadeFrom()
{
    OpenReport report;
    QVERIFY(report.scene.load(reportFile(ReportForm::document(QByteArray()))));
    const QString other = reportPath(QStringLiteral("other.kelvc"));
    QVERIFY(report.scene.save(other));
    QCOMPARE(readXml(other).documentElement().attribute(QStringLiteral("resPak")), ReportForm::path());
}

void TestReportSaving::pageTypeInASavedFileIsA4AlsoForAnA3Page()
{
    OpenReport report;
    QVERIFY(report.scene.load(reportFile(ReportForm::document(QByteArray()))));
    QVERIFY(report.scene.save(reportPath()));
    const QVector<QDomElement> pages = elements(readXml(reportPath()), QStringLiteral("page"));
    QCOMPARE(pages.size(), 2);
    for (const QDomElement &page : pages)
        QCOMPARE(page.attribute(QStringLiteral("pageType")), QStringLiteral("A4"));
    OpenReport again;
    QVERIFY(again.scene.load(reportPath()));
    const QRectF a3 =
        static_cast<QGraphicsItem *>(itemsOfType(again.scene, ReportPageType).at(1))->boundingRect();
    QVERIFY2(qAbs(a3.width() - 842) <= 1 && qAbs(a3.height() - 1190) <= 1,
             "the size comes from the template");
}

void TestReportSaving::imagesAreRenumberedInTheOrderOfTheScene()
{
    const QByteArray xml = ReportForm::xml("<page id=\"page2\">" + imageElement("3", "2") +
                                           "</page><page id=\"page1\">" + imageElement("1", "1") + "</page>");
    OpenReport report;
    QVERIFY(report.scene.load(reportFile(pack(xml, {{QStringLiteral("png"), png(4, 2)},
                                                    {QStringLiteral("jpg"), QByteArray("nobody shows this")},
                                                    {QStringLiteral("svg"), QByteArray(drawing)}}))));
    QVERIFY(report.scene.save(reportPath()));
    const Entries saved = read(reportPath());
    QCOMPARE(saved.size(), 3);
    const QVector<QDomElement> images = elements(readXml(reportPath()), QStringLiteral("image"));
    QCOMPARE(images.size(), 2);
    QCOMPARE(images.at(0).attribute(QStringLiteral("index")), QStringLiteral("1"));
    QCOMPARE(images.at(0).attribute(QStringLiteral("x")).toDouble(), 1.0);
    QCOMPARE(saved.at(1).first, QStringLiteral("png"));
    QCOMPARE(images.at(1).attribute(QStringLiteral("index")), QStringLiteral("2"));
    QCOMPARE(images.at(1).attribute(QStringLiteral("x")).toDouble(), 2.0);
    QCOMPARE(saved.at(2).first, QStringLiteral("svg"));
}

void TestReportSaving::imagesGoBackToTheFileByteForByte()
{
    const Entries images = {{QStringLiteral("png"), png(64, 32) + QByteArray("trailing bytes")},
                            {QStringLiteral("SVG"), QByteArray(drawing)},
                            {QStringLiteral("svg"), QByteArray("<svg this cannot be drawn")},
                            {QString(), QByteArray()}};
    QByteArray elementsOfAll;
    for (const char *index : {"1", "2", "3", "4"})
        elementsOfAll += imageElement(index, index);
    OpenReport report;
    QVERIFY(report.scene.load(
        reportFile(pack(ReportForm::xml("<page id=\"page1\">" + elementsOfAll + "</page>"), images))));
    QVERIFY(report.scene.save(reportPath()));
    QCOMPARE(read(reportPath()).mid(1), images);
}

void TestReportSaving::labelsAndPlacesInTheFileAreNotReadBack()
{
    OpenReport report;
    QVERIFY(report.scene.load(reportFile(ReportForm::document(
        R"(<page id="page1" pageNumber="7" backgroundColour="#ff0000"><text id="client" x="500" y="500" width="9" height="9" editable="0" fontSize="40">typed</text></page>)"))));
    const AbstractReportItem *client = report.scene.itemById(QStringLiteral("client"));
    QCOMPARE(client->pos(), QPointF(40, 80));
    QVERIFY(client->isEditable());
    QCOMPARE(client->fontSize(), 9.0);
    QCOMPARE(client->boundingRect().width(), 300.0);
    QCOMPARE(client->parentReportItem()->backgroundColour(), QColor(Qt::white));
}

void TestReportSaving::textOfAllKindsSurvives_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("markup") << QStringLiteral("<b> & \"quotes\" 'single' ]]> &amp; <!-- x -->");
    QTest::newRow("letters") << QString::fromUtf8("Übergabe für Straße 5, 3 MΩ, 日本語");
    QTest::newRow("beyond the first plane") << QString::fromUtf8("sun \xf0\x9f\x8c\x9e");
    QTest::newRow("lines") << QStringLiteral("one\ntwo\n\nfour");
    QTest::newRow("spaces") << QStringLiteral("  led by spaces,  held apart ");
    QTest::newRow("place markers") << QStringLiteral("100 %1 %2");
}

void TestReportSaving::textOfAllKindsSurvives()
{
    QFETCH(QString, text);
    OpenReport report;
    QVERIFY(report.scene.load(reportFile(ReportForm::document(QByteArray()))));
    qobject_cast<ReportText *>(report.scene.itemById(QStringLiteral("client")))->setPlainText(text);
    QVERIFY(report.scene.save(reportPath()));
    OpenReport again;
    QVERIFY(again.scene.load(reportPath()));
    QCOMPARE(textOf(again.scene, "client"), text);
}

void TestReportSaving::charactersThatXmlCannotHoldAreLeftOut()
{
    OpenReport report;
    QVERIFY(report.scene.load(reportFile(ReportForm::document(QByteArray()))));
    const QString pasted =
        QStringLiteral("a") + QChar(1) + QChar(0xb) + QStringLiteral("b") + QChar(0xfffe) + QChar(0x1b);
    qobject_cast<ReportText *>(report.scene.itemById(QStringLiteral("client")))->setPlainText(pasted);
    QVERIFY(report.scene.save(reportPath()));
    OpenReport again;
    QVERIFY(again.scene.load(reportPath()));
    QCOMPARE(textOf(again.scene, "client"), QStringLiteral("ab"));
}

void TestReportSaving::savingEndsAnEditInProgress()
{
    OpenReport report;
    QVERIFY(report.scene.load(reportFile(ReportForm::document(QByteArray()))));
    KeyboardView view(report);
    QTest::keyClick(&view, Qt::Key_Tab);
    QTest::keyClicks(&view, QStringLiteral("Sunny Farm"));
    QVERIFY(report.scene.focusItem());
    QVERIFY(report.scene.save(reportPath()));
    QVERIFY(!report.scene.focusItem());
    QCOMPARE(elementById(readXml(reportPath()), QStringLiteral("client")).text(),
             QStringLiteral("Sunny Farm"));
}

void TestReportSaving::everyFormIsFilledSavedAndOpenedAgain_data()
{
    QTest::addColumn<QString>("pristine");
    for (const char *folder : {":res/reports_en", ":res/reports_de"}) {
        const QDir forms{QLatin1String(folder)};
        for (const QString &name : forms.entryList({QStringLiteral("default.*")})) {
            if (isReport(documentType(name)))
                QTest::addRow("%s, %s", folder, qPrintable(name)) << forms.filePath(name);
        }
    }
}

void TestReportSaving::everyFormIsFilledSavedAndOpenedAgain()
{
    QFETCH(QString, pristine);
    OpenReport report;
    QVERIFY(report.scene.load(pristine));
    QVERIFY(!report.scene.pages().isEmpty());
    QMap<QString, QString> texts;
    for (const int type : {ReportTextType, ReportTableCellType}) {
        for (AbstractReportItem *item : itemsOfType(report.scene, type)) {
            if (!item->isEditable() || (type == ReportTextType && item->reportId().isEmpty()))
                continue;
            const QString text = QStringLiteral("%1 of %2").arg(texts.size()).arg(item->reportId());
            qobject_cast<ReportText *>(item)->setPlainText(text);
            texts.insert(text, text);
        }
    }
    QMap<QString, bool> ticks;
    for (AbstractReportItem *item : itemsOfType(report.scene, ReportCheckBoxType)) {
        const bool tick = ticks.size() % 3 != 1;
        qobject_cast<ReportCheckBox *>(item)->setChecked(tick, false);
        ticks.insert(item->reportId(), tick);
    }
    QVERIFY(ticks.size() >= 2);
    const QString suffix = QFileInfo(pristine).suffix();
    // The checklist has no fields.
    QVERIFY(suffix == QLatin1String("kelchk") ? texts.isEmpty() : texts.size() > 2);
    const QString saved = reportPath(QStringLiteral("filled.") + suffix);
    QVERIFY(report.scene.save(saved));
    OpenReport again;
    QVERIFY(again.scene.load(saved));
    for (const int type : {ReportTextType, ReportTableCellType}) {
        for (AbstractReportItem *item : itemsOfType(again.scene, type))
            texts.remove(qobject_cast<ReportText *>(item)->plainText());
    }
    QCOMPARE(texts.keys(), QStringList());
    for (AbstractReportItem *item : itemsOfType(again.scene, ReportCheckBoxType))
        QCOMPARE(qobject_cast<ReportCheckBox *>(item)->isChecked(), ticks.take(item->reportId()));
    QVERIFY(ticks.isEmpty());
    QCOMPARE(itemsOfType(again.scene, ReportResizableImageType).size(),
             itemsOfType(report.scene, ReportResizableImageType).size());
    const QString twice = reportPath(QStringLiteral("twice.") + suffix);
    QVERIFY(again.scene.save(twice));
    QCOMPARE(readFile(twice), readFile(saved));
}

void TestReportSaving::anArrayTestReportWithoutResPakIsOneOfTheFirstRevision()
{
    OpenReport report;
    QVERIFY(report.scene.load(reportFile(pack(QByteArray(
        R"(<document><page id="page1"><text id="inspector">A. Smith</text></page></document>)")))));
    QCOMPARE(textOf(report.scene, "inspector"), QStringLiteral("A. Smith"));
    QVERIFY(report.scene.itemById(QStringLiteral("date")));
    QVERIFY(!report.scene.itemById(QStringLiteral("Voc (VDC)")));
    QVERIFY(report.scene.save(reportPath()));
    QCOMPARE(readXml(reportPath()).documentElement().attribute(QStringLiteral("resPak")),
             QStringLiteral(":res/reports_de/kelatr.pak"));
}

void TestReportSaving::savingOverALongerFileLeavesNothingOfIt()
{
    OpenReport report;
    QVERIFY(report.scene.load(reportFile(ReportForm::document(QByteArray()))));
    writeFile(reportPath(), QByteArray(200000, 'x'));
    QVERIFY(report.scene.save(reportPath()));
    QVERIFY(!readXml(reportPath()).isNull());
}

KELMAR_TEST_MAIN(TestReportSaving)
#include "tst_reportsaving.moc"

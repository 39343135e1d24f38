#include "report/ReportScene.h"

#include "app/core/Shell.h"
#include "report/items/AbstractReportItem.h"
#include "report/items/ReportPage.h"
#include "tests/report/OpenReport.h"
#include "tests/report/ReportForm.h"
#include "tests/report/ReportSample.h"
#include "tests/support/BoxWatcher.h"
#include "tests/support/TestMain.h"

#include <QGraphicsTextItem>
#include <QGraphicsView>

#include <memory>

using namespace ReportSample;

namespace {

const QByteArray image1 =
    R"(<image index="1" x="10" y="20" width="40" height="20" scale="1" resizable="1"/>)";

class WindowShell : public Shell
{
public:
    QWidget *window() override { return &m_window; }
    void import() override {}
    void download() override {}

private:
    QWidget m_window;
};

} // namespace

/// Opening report files: the template, the document laid over it, and what files may hold against it.
class TestReportScene : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { m_form = std::make_unique<ReportForm>(); }
    void cleanupTestCase() { m_form.reset(); }

    void theTemplateBuildsPagesAndItemsAndTheDocumentFillsThem();
    void aSuffixKelreportSkipsTheTemplateAndOpensAsAnEmptyScene();
    void aDocumentWithoutResPakLoadsAgainstTheFirstRevisionOfItsKind();
    void theCaseOfTheSuffixDoesNotMatter();
    void anElementWithAnUnknownIdIsDroppedWithItsSubtree();
    void elementsWithoutIdDoNothingUnlessTheyAreImages();
    void elementsAreMatchedByIdWhateverTheirTag();
    void aLaterItemWithTheSameIdReplacesTheEarlierOne();
    void cellsAreFilledByColumnAndRow();
    void imagesComeBelowTheItemTheyStandIn();
    void anImageOutsideOfEveryPageNeverReachesTheScene();
    void anImageWithoutAnEntryIsSkipped_data();
    void anImageWithoutAnEntryIsSkipped();
    void pagesAreListedByTheirNumbers();

    void anUnreadableFileIsToldAndRefused_data();
    void anUnreadableFileIsToldAndRefused();
    void brokenXmlIsToldWithLineAndColumn();
    void aPathWithPlaceMarkersIsNotFilledInTwice();
    void aTemplateThatIsNotThereRefusesTheDocument_data();
    void aTemplateThatIsNotThereRefusesTheDocument();
    void aTemplateThatIsNoXmlBuildsAnEmptyScene();
    void theHourglassIsGoneWhenABoxComesUp();
    void boxesHaveTheMainWindowAsParent();
    void hostileDocumentsAreRefusedOrReadWithoutHarm_data();
    void hostileDocumentsAreRefusedOrReadWithoutHarm();

    void commandsOfItemsReachTheStack();
    void theBackgroundIsGrey();

private:
    std::unique_ptr<ReportForm> m_form;
};

void TestReportScene::theTemplateBuildsPagesAndItemsAndTheDocumentFillsThem()
{
    OpenReport report;
    QVERIFY(report.scene.load(reportFile(ReportForm::document(R"(
        <page id="page1"><text id="client">Sunny Farm</text><checkBox id="done" checked="true">Hacked label</checkBox></page>
        <page id="page2"><text id="remarks">None</text></page>)"))));
    QCOMPARE(report.scene.resPak(), ReportForm::path());
    QCOMPARE(report.scene.pages().size(), 2);
    QCOMPARE(textOf(report.scene, "client"), QStringLiteral("Sunny Farm"));
    QCOMPARE(textOf(report.scene, "notes"), QStringLiteral("Template notes"));
    QCOMPARE(textOf(report.scene, "remarks"), QStringLiteral("None"));
    QCOMPARE(textOf(report.scene, "done"), QStringLiteral("All done"));
    QCOMPARE(report.scene.itemById(QStringLiteral("client"))->pos(), QPointF(40, 80));
    QCOMPARE(report.scene.itemById(QStringLiteral("remarks"))->parentItem(), report.scene.pages().at(1));
    QVERIFY(!report.scene.itemById(QStringLiteral("nobody")));
    QCOMPARE(report.stack.count(), 0);
}

void TestReportScene::aSuffixKelreportSkipsTheTemplateAndOpensAsAnEmptyScene()
{
    OpenReport report;
    const QByteArray xml = ReportForm::xml(R"(<page id="page1"><text id="client">x</text></page>)" + image1);
    const QString path =
        reportFile(pack(xml, {{QStringLiteral("png"), png(4, 2)}}), QStringLiteral("plain.kelreport"));
    QVERIFY(report.scene.load(path));
    QVERIFY(report.scene.items().isEmpty());
    QVERIFY(report.scene.pages().isEmpty());
    QVERIFY(report.scene.resPak().isEmpty());
    QVERIFY(report.scene.save(path));
    QCOMPARE(readXml(path).documentElement().attribute(QStringLiteral("resPak"), QStringLiteral("none")),
             QString());
}

void TestReportScene::aDocumentWithoutResPakLoadsAgainstTheFirstRevisionOfItsKind()
{
    const QString expected = QStringLiteral(":res/reports_de/kelfirst.pak");
    const TestResource first(
        expected,
        pack(QByteArray(R"(<document><page id="page1"><text id="old" editable="1"/></page></document>)")));
    const QString path = reportFile(
        pack(QByteArray(R"(<document><page id="page1"><text id="old">kept</text></page></document>)")),
        QStringLiteral("a.kelfirst"));
    OpenReport report;
    QVERIFY(report.scene.load(path));
    QCOMPARE(textOf(report.scene, "old"), QStringLiteral("kept"));
    QVERIFY(report.scene.save(path));
    QCOMPARE(readXml(path).documentElement().attribute(QStringLiteral("resPak")), expected);
}

void TestReportScene::theCaseOfTheSuffixDoesNotMatter()
{
    const TestResource first(QStringLiteral(":res/reports_de/kelcase.pak"),
                             pack(QByteArray(R"(<document><page id="page1"/></document>)")));
    OpenReport report;
    QVERIFY(report.scene.load(reportFile(pack(QByteArray("<document/>")), QStringLiteral("A.KELCASE"))));
    QCOMPARE(report.scene.pages().size(), 1);
    OpenReport plain;
    QVERIFY(plain.scene.load(reportFile(pack(QByteArray("<document/>")), QStringLiteral("A.KELREPORT"))));
    QVERIFY(plain.scene.resPak().isEmpty());
}

void TestReportScene::anElementWithAnUnknownIdIsDroppedWithItsSubtree()
{
    OpenReport report;
    QVERIFY(report.scene.load(reportFile(ReportForm::document(R"(
        <page id="page1"><text id="gone">lost<text id="client">inner</text></text><text id="notes">kept</text></page>
        <page id="page9"><text id="remarks">inner</text></page>)"))));
    QCOMPARE(textOf(report.scene, "client"), QString());
    QCOMPARE(textOf(report.scene, "remarks"), QString());
    QCOMPARE(textOf(report.scene, "notes"), QStringLiteral("kept"));
}

void TestReportScene::elementsWithoutIdDoNothingUnlessTheyAreImages()
{
    OpenReport report;
    const QByteArray xml =
        ReportForm::xml(R"(<page id="page1"><text x="1" y="1" width="9" height="9">OTHER LABEL</text>
        <text><text id="client">below a label</text></text>)" +
                        image1 + "</page>");
    QVERIFY(report.scene.load(reportFile(pack(xml, {{QStringLiteral("png"), png(4, 2)}}))));
    OpenReport bare;
    QVERIFY(bare.scene.load(reportFile(ReportForm::document(QByteArray()))));
    QCOMPARE(itemsOfType(report.scene, ReportTextType).size(),
             itemsOfType(bare.scene, ReportTextType).size());
    QCOMPARE(textOf(report.scene, "client"), QString());
    QCOMPARE(itemsOfType(report.scene, ReportResizableImageType).size(), 1);
}

void TestReportScene::elementsAreMatchedByIdWhateverTheirTag()
{
    OpenReport report;
    QVERIFY(report.scene.load(reportFile(ReportForm::document(R"(
        <text id="page1"><cell id="client">from a cell</cell><text id="done" checked="true">label</text></text>)"))));
    QCOMPARE(textOf(report.scene, "client"), QStringLiteral("from a cell"));
    QCOMPARE(textOf(report.scene, "done"), QStringLiteral("All done"));
    const QString path = TestHome::instance()->path(QStringLiteral("saved.kelatr"));
    QVERIFY(report.scene.save(path));
    QCOMPARE(elementById(readXml(path), QStringLiteral("done")).attribute(QStringLiteral("checked")),
             QStringLiteral("true"));
}

void TestReportScene::aLaterItemWithTheSameIdReplacesTheEarlierOne()
{
    const TestResource twice(
        QStringLiteral(":res/test/twice.pak"),
        pack(QByteArray(
            R"(<document><page id="page1"><text id="a" x="1" editable="1"/><text id="a" x="2" editable="1"/></page></document>)")));
    OpenReport report;
    QVERIFY(report.scene.load(reportFile(pack(QByteArray(
        R"(<document resPak=":res/test/twice.pak"><page id="page1"><text id="a">here</text></page></document>)")))));
    QCOMPARE(report.scene.itemById(QStringLiteral("a"))->x(), 2.0);
    const QList<AbstractReportItem *> texts = itemsOfType(report.scene, ReportTextType);
    QCOMPARE(editorOf(texts.at(0))->toPlainText(), QString());
    QCOMPARE(editorOf(texts.at(1))->toPlainText(), QStringLiteral("here"));
}

void TestReportScene::cellsAreFilledByColumnAndRow()
{
    OpenReport report;
    QVERIFY(report.scene.load(reportFile(ReportForm::document(R"(<page id="page1"><table id="grid">
        <cell col="2" row="1">812</cell><cell col="9" row="9">nowhere</cell></table></page>)"))));
    QCOMPARE(cellText(report.scene, "grid", 2, 1), QStringLiteral("812"));
    QCOMPARE(cellText(report.scene, "grid", 1, 1), QString());
    QCOMPARE(cellText(report.scene, "grid", 0, 1), QStringLiteral("Voc (V)"));
    QCOMPARE(textOf(report.scene, "Voc"), QStringLiteral("Voc (V)"));
}

void TestReportScene::imagesComeBelowTheItemTheyStandIn()
{
    OpenReport report;
    const QByteArray xml = ReportForm::xml(R"(<page id="page2">)" + image1 + "</page>");
    QVERIFY(report.scene.load(reportFile(pack(xml, {{QStringLiteral("png"), png(4, 2)}}))));
    const QList<AbstractReportItem *> images = itemsOfType(report.scene, ReportResizableImageType);
    QCOMPARE(images.size(), 1);
    QCOMPARE(images.first()->parentItem(), report.scene.pages().at(1));
    QCOMPARE(images.first()->pos(), QPointF(10, 20));
}

void TestReportScene::anImageOutsideOfEveryPageNeverReachesTheScene()
{
    OpenReport report;
    QVERIFY(
        report.scene.load(reportFile(pack(ReportForm::xml(image1), {{QStringLiteral("png"), png(4, 2)}}))));
    QVERIFY(itemsOfType(report.scene, ReportResizableImageType).isEmpty());
}

void TestReportScene::anImageWithoutAnEntryIsSkipped_data()
{
    QTest::addColumn<QByteArray>("index");
    for (const char *index : {"2", "-1", "2147483647", "99999999999", "one", "", "1.5"})
        QTest::newRow(index) << QByteArray(index);
}

void TestReportScene::anImageWithoutAnEntryIsSkipped()
{
    QFETCH(QByteArray, index);
    OpenReport report;
    const QByteArray xml = ReportForm::xml(R"(<page id="page1"><image width="9" height="9" index=")" + index +
                                           R"("/><text id="client">read on</text></page>)");
    QVERIFY(report.scene.load(reportFile(pack(xml, {{QStringLiteral("png"), png(4, 2)}}))));
    QVERIFY(itemsOfType(report.scene, ReportResizableImageType).isEmpty());
    QCOMPARE(textOf(report.scene, "client"), QStringLiteral("read on"));
}

void TestReportScene::pagesAreListedByTheirNumbers()
{
    const TestResource pages(
        QStringLiteral(":res/test/pages.pak"),
        pack(QByteArray(
            R"(<document><page id="c" pageNumber="3"/><page id="a" pageNumber="1"/><text id="t"/><page id="b" pageNumber="2"/></document>)")));
    OpenReport report;
    QVERIFY(report.scene.load(reportFile(pack(QByteArray(R"(<document resPak=":res/test/pages.pak"/>)")))));
    QStringList ids;
    for (const ReportPage *page : report.scene.pages())
        ids.append(page->reportId());
    QCOMPARE(ids, QStringList({QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c")}));
}

void TestReportScene::anUnreadableFileIsToldAndRefused_data()
{
    QTest::addColumn<QByteArray>("bytes");
    const QByteArray good = ReportForm::document(QByteArray(2000, ' '));
    QByteArray hugePrefix = good;
    hugePrefix.replace(0, 4, QByteArray("\x7f\xff\xff\x00", 4)).truncate(20);
    QByteArray damaged = good;
    damaged[damaged.size() - 1] = char(damaged.at(damaged.size() - 1) ^ 0x55);
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("text") << QByteArray("this is no container at all");
    QTest::newRow("cut stream") << good.left(good.size() / 2);
    QTest::newRow("wrong check sum") << damaged;
    QTest::newRow("prefix that claims two gigabytes") << hugePrefix;
    QTest::newRow("no entries") << pack(Entries());
}

void TestReportScene::anUnreadableFileIsToldAndRefused()
{
    QFETCH(QByteArray, bytes);
    BoxWatcher watcher;
    watcher.expect(QStringLiteral("Error opening"), QMessageBox::Ok);
    OpenReport report;
    const QString path = reportFile(bytes);
    QVERIFY(!report.scene.load(path));
    QCOMPARE(watcher.texts(), QStringList(QStringLiteral("Error opening %1 for reading").arg(path)));
    QCOMPARE(watcher.boxes().first().icon, QMessageBox::Warning);
    QCOMPARE(watcher.boxes().first().informativeText, QString());
}

void TestReportScene::brokenXmlIsToldWithLineAndColumn()
{
    BoxWatcher watcher;
    watcher.expect(QStringLiteral("XML validation error"), QMessageBox::Ok);
    OpenReport report;
    const QByteArray xml = "<document>\n <page>\n</document>";
    int line = 0;
    int column = 0;
    QString reason;
    QVERIFY(!QDomDocument().setContent(xml, &reason, &line, &column));
    QCOMPARE(line, 3);
    const QString path = reportFile(pack(xml));
    QVERIFY(!report.scene.load(path));
    const BoxWatcher::Box box = watcher.boxes().first();
    QCOMPARE(
        box.text,
        QStringLiteral("XML validation error in %1 on line 3, column %2").arg(path, QString::number(column)));
    QCOMPARE(box.icon, QMessageBox::Warning);
    QCOMPARE(box.informativeText, reason);
}

void TestReportScene::aPathWithPlaceMarkersIsNotFilledInTwice()
{
    BoxWatcher watcher;
    watcher.expect(QStringLiteral("XML validation error"), QMessageBox::Ok);
    watcher.expect(QStringLiteral("for reading"), QMessageBox::Ok);
    watcher.expect(QStringLiteral("for writing"), QMessageBox::Ok);
    OpenReport report;
    const QString path = reportFile(pack(QByteArray("<document>")), QStringLiteral("50%2 %3 %1.kelatr"));
    QVERIFY(!report.scene.load(path));
    QVERIFY2(watcher.texts().last().startsWith(QStringLiteral("XML validation error in %1 on line 1, column ")
                                                   .replace(QStringLiteral("%1"), path)),
             qPrintable(watcher.texts().last()));
    const QString absent = TestHome::instance()->path(QStringLiteral("none/%1%2.kelatr"));
    QVERIFY(!report.scene.load(absent));
    QCOMPARE(watcher.texts().last(),
             QStringLiteral("Error opening ") + absent + QStringLiteral(" for reading"));
    QVERIFY(!report.scene.save(absent));
    QCOMPARE(watcher.texts().last(),
             QStringLiteral("Error opening ") + absent + QStringLiteral(" for writing"));
    QCOMPARE(watcher.boxes().last().informativeText,
             QStringLiteral("Is the file read-only or has it been deleted?"));
}

void TestReportScene::aTemplateThatIsNotThereRefusesTheDocument_data()
{
    QTest::addColumn<QString>("resPak");
    const QString onDisk = TestHome::instance()->path(QStringLiteral("disk.pak"));
    writeFile(onDisk, pack(QByteArray(R"(<document><page id="page1"/></document>)")));
    QTest::newRow("absent") << QStringLiteral(":res/reports_en/kelatr_rev99.pak");
    QTest::newRow("no container") << QStringLiteral(":res/test/text.pak");
    QTest::newRow("on disk") << onDisk;
    QTest::newRow("empty") << QString();
    QTest::newRow("other resources") << QStringLiteral(":/res/test/form.pak");
    QTest::newRow("a folder") << QStringLiteral(":res/test");
    QTest::newRow("out of the resources") << QStringLiteral(":res/../../../../../../../../") + onDisk;
}

void TestReportScene::aTemplateThatIsNotThereRefusesTheDocument()
{
    QFETCH(QString, resPak);
    const TestResource text(QStringLiteral(":res/test/text.pak"), QByteArray("no container"));
    BoxWatcher watcher;
    watcher.expect(QStringLiteral("Error opening"), QMessageBox::Ok);
    OpenReport report;
    const QString path =
        reportFile(pack("<document resPak=\"" + resPak.toUtf8() + "\"><page id=\"page1\"/></document>"));
    QVERIFY(!report.scene.load(path));
    QCOMPARE(watcher.texts(), QStringList(QStringLiteral("Error opening %1 for reading").arg(path)));
    QVERIFY(report.scene.items().isEmpty());
}

void TestReportScene::aTemplateThatIsNoXmlBuildsAnEmptyScene()
{
    const TestResource broken(QStringLiteral(":res/test/broken.pak"),
                              pack(QByteArray("<document><page id='page1'>")));
    OpenReport report;
    QVERIFY(report.scene.load(reportFile(
        pack(QByteArray(R"(<document resPak=":res/test/broken.pak"><page id="page1"/></document>)")))));
    QVERIFY(report.scene.items().isEmpty());
    QVERIFY(report.scene.pages().isEmpty());
}

void TestReportScene::theHourglassIsGoneWhenABoxComesUp()
{
    BoxWatcher watcher;
    watcher.expect(QStringLiteral("Error opening"), QMessageBox::Ok);
    QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    OpenReport report;
    QVERIFY(!report.scene.load(reportFile(QByteArray("nothing"))));
    QVERIFY(!QGuiApplication::overrideCursor());
}

void TestReportScene::boxesHaveTheMainWindowAsParent()
{
    WindowShell shell;
    BoxWatcher watcher;
    watcher.expect(QStringLiteral("for reading"), QMessageBox::Ok);
    watcher.expect(QStringLiteral("for writing"), QMessageBox::Ok);
    OpenReport report;
    QVERIFY(!report.scene.load(reportFile(QByteArray("nothing"))));
    QVERIFY(!report.scene.save(TestHome::instance()->path(QStringLiteral("none/a.kelatr"))));
    QCOMPARE(watcher.boxes().at(0).parent, shell.window());
    QCOMPARE(watcher.boxes().at(1).parent, shell.window());
}

void TestReportScene::hostileDocumentsAreRefusedOrReadWithoutHarm_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("message");
    const QString xmlError = QStringLiteral("XML validation error");
    const auto page = [](const QByteArray &inside) {
        return ReportForm::xml("<page id=\"page1\">" + inside + "</page>");
    };
    const auto image = [&page](const QByteArray &attributes, const QByteArray &format,
                               const QByteArray &data) {
        return pack(page("<image index=\"1\" " + attributes + "/>"), {{QString::fromLatin1(format), data}});
    };
    QTest::newRow("forty thousand levels")
        << pack(QByteArray("<a>").repeated(40000) + QByteArray("</a>").repeated(40000)) << xmlError;
    QTest::newRow("entity bomb") << pack(QByteArray(
                                        "<!DOCTYPE d [<!ENTITY a \"aaaaaaaaaa\"><!ENTITY b "
                                        "\"&a;&a;&a;&a;&a;&a;&a;&a;\"><!ENTITY c \"&b;&b;&b;&b;&b;&b;\">]>"
                                        "<document>&c;&c;</document>"))
                                 << xmlError;
    QTest::newRow("external entity")
        << pack(
               QByteArray("<!DOCTYPE d [<!ENTITY a SYSTEM \"file:///etc/passwd\">]><document>&a;</document>"))
        << xmlError;
    QTest::newRow("no XML") << pack(QByteArray("\xff\xfe\x00 binary", 10)) << xmlError;
    QTest::newRow("null entry") << pack(QByteArray()) << xmlError;
    QTest::newRow("places out of all bounds")
        << image(R"(x="1e300" y="-1e300" width="1e300" height="1e300" scale="1e300")", "png", png(4, 2))
        << QString();
    QTest::newRow("places that are no numbers")
        << image(R"(x="nan" y="inf" width="nan" height="-inf" scale="nan")", "png", png(4, 2)) << QString();
    QTest::newRow("scale of nothing")
        << image(R"(x="1" y="1" width="40" height="40" scale="0")", "png", png(4, 2)) << QString();
    QTest::newRow("picture that is none")
        << image(R"(width="40" height="40" scale="1")", "png", "no picture") << QString();
    QTest::newRow("drawing that is none")
        << image(R"(width="40" height="40" scale="1")", "svg", "<svg") << QString();
    QTest::newRow("drawing of a billion units")
        << image(
               R"(width="40" height="40" scale="1")", "svg",
               R"(<svg xmlns="http://www.w3.org/2000/svg" width="1e9" height="1e9"><rect width="1e9" height="1e9"/></svg>)")
        << QString();
    QTest::newRow("cells out of all bounds")
        << pack(page(
               R"(<table id="grid"><cell col="-1" row="99999999">a</cell><cell col="65537" row="1">b</cell></table>)"))
        << QString();
    QTest::newRow("the style of a page")
        << pack(page(R"(<text id="client" x="1e300" fontSize="1e9" width="1e9" height="1e9">a</text>)"))
        << QString();
    QTest::newRow("a background from elsewhere")
        << pack(page(R"(<svg id="page1" file="/etc/passwd" dpi="0"/>)")) << QString();
}

void TestReportScene::hostileDocumentsAreRefusedOrReadWithoutHarm()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, message);
    BoxWatcher watcher;
    if (!message.isEmpty())
        watcher.expect(message, QMessageBox::Ok);
    OpenReport report;
    const QString path = reportFile(bytes);
    QCOMPARE(report.scene.load(path), message.isEmpty());
    if (!message.isEmpty())
        return;
    QGraphicsView view(&report.scene);
    view.show();
    QVERIFY(QTest::qWaitForWindowExposed(&view, patience));
    const QRectF whole = report.scene.sceneRect();
    QVERIFY2(whole.width() < 1e7 && whole.height() < 1e7, "the pages are lost in a boundless scene");
    QCOMPARE(report.scene.itemById(QStringLiteral("client"))->pos(), QPointF(40, 80));
    QVERIFY(report.scene.save(path));
    OpenReport again;
    QVERIFY(again.scene.load(path));
}

void TestReportScene::commandsOfItemsReachTheStack()
{
    OpenReport report;
    QVERIFY(report.scene.load(reportFile(pack(ReportForm::xml("<page id=\"page1\">" + image1 + "</page>"),
                                              {{QStringLiteral("png"), png(4, 2)}}))));
    QList<AbstractReportItem *> items = itemsOfType(report.scene, ReportTableCellType);
    items += report.scene.itemById(QStringLiteral("client"));
    items += report.scene.itemById(QStringLiteral("done"));
    items += itemsOfType(report.scene, ReportResizableImageType);
    QCOMPARE(items.size(), 4 * 5 + 3);
    for (AbstractReportItem *item : qAsConst(items)) {
        const int before = report.stack.count();
        emit item->newCommand(new QUndoCommand);
        QCOMPARE(report.stack.count(), before + 1);
    }
}

void TestReportScene::theBackgroundIsGrey()
{
    OpenReport report;
    QCOMPARE(report.scene.backgroundBrush(), QBrush(Qt::gray));
}

KELMAR_TEST_MAIN(TestReportScene)
#include "tst_reportscene.moc"

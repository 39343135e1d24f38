#include "report/ReportScene.h"

#include "report/items/AbstractReportItem.h"
#include "tests/report/OpenReport.h"
#include "tests/report/ReportForm.h"
#include "tests/support/TestMain.h"

#include <QGraphicsTextItem>
#include <QGraphicsView>

#include <memory>

/// The way of the focus from field to field.
class TestReportTabChain : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { m_form = std::make_unique<ReportForm>(); }
    void cleanupTestCase() { m_form.reset(); }

    void tabWalksTheChainAndWraps();
    void tabWithoutAFocusGoesToTheEndsOfTheChain();
    void tabWorksFromInsideATextEditor();
    void tabScrollsTheNextFieldIntoView();
    void tabInASceneWithoutFieldsDoesNothing();

private:
    std::unique_ptr<ReportForm> m_form;
};

void TestReportTabChain::tabWalksTheChainAndWraps()
{
    OpenReport report;
    QVERIFY(report.scene.load(reportFile(ReportForm::document(QByteArray()))));
    KeyboardView view(report);
    const auto current = [&report] {
        QGraphicsItem *item = report.scene.focusItem();
        while (item && !isReportItem(item))
            item = item->parentItem();
        return item ? static_cast<AbstractReportItem *>(item)->reportId() : QStringLiteral("none");
    };
    QStringList forward;
    for (int i = 0; i < 5; ++i) {
        QTest::keyClick(&view, Qt::Key_Tab);
        forward.append(current());
    }
    QCOMPARE(forward.join(QLatin1Char(' ')), QStringLiteral("client done notes remarks client"));
    QStringList back;
    for (int i = 0; i < 3; ++i) {
        QTest::keyClick(&view, Qt::Key_Backtab, Qt::ShiftModifier);
        back.append(current());
    }
    QCOMPARE(back.join(QLatin1Char(' ')), QStringLiteral("remarks notes done"));
}

void TestReportTabChain::tabWithoutAFocusGoesToTheEndsOfTheChain()
{
    OpenReport report;
    QVERIFY(report.scene.load(reportFile(ReportForm::document(QByteArray()))));
    KeyboardView view(report);
    const auto press = [&view](Qt::Key key) { QTest::keyClick(&view, key); };
    QVERIFY(!report.scene.focusItem());
    press(Qt::Key_Backtab);
    QCOMPARE(report.scene.focusItem()->parentItem(), report.scene.itemById(QStringLiteral("remarks")));
    report.scene.setFocusItem(nullptr);
    press(Qt::Key_Tab);
    QCOMPARE(report.scene.focusItem()->parentItem(), report.scene.itemById(QStringLiteral("client")));
}

void TestReportTabChain::tabWorksFromInsideATextEditor()
{
    OpenReport report;
    QVERIFY(report.scene.load(reportFile(ReportForm::document(QByteArray()))));
    KeyboardView view(report);
    QTest::keyClick(&view, Qt::Key_Tab);
    QTest::keyClicks(&view, QStringLiteral("Sunny Farm"));
    QTest::keyClick(&view, Qt::Key_Tab);
    QCOMPARE(textOf(report.scene, "client"), QStringLiteral("Sunny Farm"));
    QCOMPARE(report.scene.focusItem(), report.scene.itemById(QStringLiteral("done")));
}

void TestReportTabChain::tabScrollsTheNextFieldIntoView()
{
    OpenReport report;
    QVERIFY(report.scene.load(reportFile(ReportForm::document(QByteArray()))));
    QGraphicsView view(&report.scene);
    view.resize(300, 300);
    view.show();
    QApplication::setActiveWindow(&view);
    QVERIFY(QTest::qWaitForWindowActive(&view, patience));
    const auto isVisible = [&](const char *id) {
        const QPointF corner = report.scene.itemById(QLatin1String(id))->scenePos();
        const QRect seen = view.viewport()->rect().adjusted(0, 49, 0, -49);
        return seen.contains(view.mapFromScene(corner));
    };
    report.scene.setFocusItem(report.scene.itemById(QStringLiteral("done")));
    view.centerOn(100, 100);
    QVERIFY(!isVisible("notes"));
    QTest::keyClick(&view, Qt::Key_Tab);
    QVERIFY(isVisible("notes"));
    QTest::keyClick(&view, Qt::Key_Tab);
    QVERIFY(isVisible("remarks"));
}

void TestReportTabChain::tabInASceneWithoutFieldsDoesNothing()
{
    OpenReport report;
    KeyboardView view(report);
    QTest::keyClick(&view, Qt::Key_Tab);
    QTest::keyClick(&view, Qt::Key_Backtab);
    QVERIFY(!report.scene.focusItem());
}

KELMAR_TEST_MAIN(TestReportTabChain)
#include "tst_reporttabchain.moc"

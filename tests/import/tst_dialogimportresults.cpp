#include "import/CsvResultsModel.h"
#include "import/DialogImportResults.h"
#include "tests/support/BoxWatcher.h"
#include "tests/support/LocaleSwitch.h"
#include "tests/support/TestMain.h"

#include <QComboBox>
#include <QCommandLinkButton>
#include <QHeaderView>
#include <QLabel>
#include <QSignalSpy>
#include <QTableView>
#include <QtTest>

class TestDialogImportResults : public QObject
{
    Q_OBJECT

private slots:
    void formLooksAsDrawn();
    void titleNamesTheFileShown();
    void fileThatCannotBeReadIsToldAndChangesNothing();
    void fileWithoutTestTypeColumnShowsAllColumns();
    void fileWithoutTestTypeColumnAfterOneWithItHasNoDelegate();
    void testTypeColumnAtAnotherPlaceTakesTheDelegateAlong();
    void buttonWithoutSelectionDoesNothing();
    void buttonSendsOneIndexForEachSelectedRow();
    void doubleClickSendsThatIndexAlone();
    void doubleClickInTheComboBoxDoesNotReachTheView();
    void positiveEarthRowsShowTheirBoxAtOnce();
    void choiceInTheBoxReachesTheModelAtOnce();
    void rowTurnedNegativeKeepsItsBox();
    void keysAloneTurnASignAndSendARow();
    void columnsAreWideEnoughForTheWords();
    void manyRowsLoad();
    void germanFileLoadsUnderAGermanLocale();
};

namespace {

const QByteArray withTypes("PV Tester,4711,V2.10,2\r\n"
                           "Index,TestType,Riso (MOhm),StatusCode,Checksum\r\n"
                           "1,2,>200,0,0001\r\n"
                           "2,4,63.0,0,0002\r\n"
                           "3,8,9.7,0,0003\r\n"
                           "4,4,>200,0,0004\r\n"
                           "5,16,50,0,0005\r\n");
const QByteArray withoutTypes("PV Tester,4711,V2.10,2\r\n"
                              "Index,Riso (MOhm),StatusCode,Checksum\r\n"
                              "1,>200,0,0001\r\n"
                              "2,63.0,0,0002\r\n");

/// A dialog with what the tests touch of it.
struct Shown
{
    Shown()
        : view(dialog.findChild<QTableView *>(QStringLiteral("tableView")))
        , button(dialog.findChild<QCommandLinkButton *>(QStringLiteral("commandLinkButton")))
        , sent(&dialog, &DialogImportResults::importRow)
    {
    }

    bool load(const QByteArray &bytes, const QString &name = QStringLiteral("results.csv"))
    {
        const QString path = TestHome::instance()->path(name);
        writeFile(path, bytes);
        const bool loaded = dialog.setFile(path);
        dialog.show();
        return QTest::qWaitForWindowExposed(&dialog) && loaded;
    }
    QComboBox *box(int row) const
    {
        const QModelIndex index = dialog.model()->index(row, dialog.model()->testTypeColumn());
        return qobject_cast<QComboBox *>(view->indexWidget(index));
    }
    QList<int> sentRows(int signal) const
    {
        QList<int> rows;
        const auto indexes = sent.at(signal).at(0).value<QModelIndexList>();
        for (const QModelIndex &index : indexes)
            rows << index.row();
        return rows;
    }

    DialogImportResults dialog;
    QTableView *view;
    QCommandLinkButton *button;
    QSignalSpy sent;
};

} // namespace

void TestDialogImportResults::formLooksAsDrawn()
{
    const Shown shown;
    QCOMPARE(shown.dialog.size(), QSize(424, 352));
    QCOMPARE(shown.dialog.windowTitle(), QStringLiteral("Import Results"));
    QVERIFY(!shown.dialog.isModal());
    const auto *label = shown.dialog.findChild<QLabel *>(QStringLiteral("label"));
    QVERIFY(label->wordWrap());
    QVERIFY(label->text().startsWith(
        QStringLiteral("The following data is available for import. Ensure a Array")));
    QCOMPARE(shown.button->text(), QStringLiteral("Import row(s)"));
    QCOMPARE(shown.view->selectionMode(), QAbstractItemView::ExtendedSelection);
    QCOMPARE(shown.view->selectionBehavior(), QAbstractItemView::SelectRows);
    QCOMPARE(shown.view->sizeAdjustPolicy(), QAbstractScrollArea::AdjustToContents);
}

void TestDialogImportResults::titleNamesTheFileShown()
{
    Shown shown;
    QVERIFY(shown.load(withTypes, QStringLiteral("folder/My roof.csv")));
    QCOMPARE(shown.dialog.windowTitle(), QStringLiteral("Import Results - My roof.csv"));
}

void TestDialogImportResults::fileThatCannotBeReadIsToldAndChangesNothing()
{
    Shown shown;
    QVERIFY(shown.load(withTypes));
    BoxWatcher boxes;
    boxes.expect(QStringLiteral("Error opening"), QMessageBox::Ok);
    QVERIFY(!shown.dialog.setFile(QStringLiteral("/nowhere/missing.csv")));
    QCOMPARE(boxes.boxes().size(), 1);
    QCOMPARE(boxes.boxes().at(0).text, QStringLiteral("Error opening /nowhere/missing.csv for reading."));
    QCOMPARE(boxes.boxes().at(0).icon, QMessageBox::Warning);
    QCOMPARE(boxes.boxes().at(0).parent, &shown.dialog);
    QCOMPARE(shown.dialog.windowTitle(), QStringLiteral("Import Results - results.csv"));
    QCOMPARE(shown.dialog.model()->rowCount(), 5);
}

void TestDialogImportResults::fileWithoutTestTypeColumnShowsAllColumns()
{
    Shown shown;
    QVERIFY(shown.load(withoutTypes));
    QCOMPARE(shown.dialog.model()->testTypeColumn(), -1);
    QCOMPARE(shown.view->horizontalHeader()->count(), 4);
    QCOMPARE(shown.view->verticalHeader()->count(), 2);
    for (int column = 0; column < 4; ++column) {
        QVERIFY(!shown.view->isColumnHidden(column));
        QVERIFY(!shown.view->itemDelegateForColumn(column));
    }
}

void TestDialogImportResults::fileWithoutTestTypeColumnAfterOneWithItHasNoDelegate()
{
    Shown shown;
    QVERIFY(shown.load(withTypes));
    QVERIFY(shown.view->itemDelegateForColumn(1));
    QVERIFY(shown.load(withoutTypes));
    for (int column = 0; column < 4; ++column)
        QVERIFY(!shown.view->itemDelegateForColumn(column));
    QTRY_VERIFY(shown.view->findChildren<QComboBox *>().isEmpty());
}

void TestDialogImportResults::testTypeColumnAtAnotherPlaceTakesTheDelegateAlong()
{
    Shown shown;
    QVERIFY(shown.load(withTypes));
    QVERIFY(shown.load("h\nA,B,TestType\n1,2,4\n"));
    QVERIFY(!shown.view->itemDelegateForColumn(1));
    QVERIFY(shown.view->itemDelegateForColumn(2));
    QVERIFY(shown.box(0));
}

void TestDialogImportResults::buttonWithoutSelectionDoesNothing()
{
    Shown shown;
    QVERIFY(shown.load(withTypes));
    shown.button->click();
    QCOMPARE(shown.sent.count(), 0);
}

void TestDialogImportResults::buttonSendsOneIndexForEachSelectedRow()
{
    Shown shown;
    QVERIFY(shown.load(withTypes));
    shown.view->selectRow(1);
    shown.button->click();
    QCOMPARE(shown.sent.count(), 1);
    QCOMPARE(shown.sentRows(0), QList<int>{1});

    QItemSelectionModel *selection = shown.view->selectionModel();
    selection->select(shown.dialog.model()->index(4, 2),
                      QItemSelectionModel::Select | QItemSelectionModel::Rows);
    shown.button->click();
    QCOMPARE(shown.sent.count(), 2);
    QCOMPARE(shown.sentRows(1), (QList<int>{1, 4}));
    for (const QModelIndex &index : shown.sent.at(1).at(0).value<QModelIndexList>())
        QCOMPARE(index.column(), 0);

    QVERIFY(shown.load(withTypes));
    shown.button->click();
    QCOMPARE(shown.sent.count(), 2);
}

void TestDialogImportResults::doubleClickSendsThatIndexAlone()
{
    Shown shown;
    QVERIFY(shown.load(withTypes));
    shown.view->selectRow(0);
    const QPoint place = shown.view->visualRect(shown.dialog.model()->index(3, 2)).center();
    QTest::mouseClick(shown.view->viewport(), Qt::LeftButton, Qt::NoModifier, place);
    QTest::mouseDClick(shown.view->viewport(), Qt::LeftButton, Qt::NoModifier, place);
    QCOMPARE(shown.sent.count(), 1);
    QCOMPARE(shown.sent.at(0).at(0).value<QModelIndexList>(),
             QModelIndexList{shown.dialog.model()->index(3, 2)});

    const QPoint below(place.x(), shown.view->viewport()->height() - 2);
    QVERIFY(!shown.view->indexAt(below).isValid());
    QTest::mouseDClick(shown.view->viewport(), Qt::LeftButton, Qt::NoModifier, below);
    QCOMPARE(shown.sent.count(), 1);
}

void TestDialogImportResults::doubleClickInTheComboBoxDoesNotReachTheView()
{
    Shown shown;
    QVERIFY(shown.load(withTypes));
    QComboBox *box = shown.box(1);
    QVERIFY(box);
    QTest::mouseDClick(box, Qt::LeftButton);
    box->hidePopup();
    QCOMPARE(shown.sent.count(), 0);
    QCOMPARE(shown.dialog.model()->testType(shown.dialog.model()->index(1, 0)), 4u);
}

void TestDialogImportResults::positiveEarthRowsShowTheirBoxAtOnce()
{
    Shown shown;
    QVERIFY(shown.load(withTypes));
    const QList<int> withBox = {1, 3};
    for (int row = 0; row < shown.dialog.model()->rowCount(); ++row)
        QCOMPARE(shown.box(row) != nullptr, withBox.contains(row));
    QCOMPARE(shown.box(1)->currentText(), QStringLiteral("Positive-earth insulation"));
}

void TestDialogImportResults::choiceInTheBoxReachesTheModelAtOnce()
{
    Shown shown;
    QVERIFY(shown.load(withTypes));
    const CsvResultsModel *model = shown.dialog.model();
    const QSignalSpy changed(model, &CsvResultsModel::dataChanged);
    shown.box(1)->setFocus();
    QTest::keyClick(shown.box(1), Qt::Key_Down);
    QCOMPARE(model->data(model->index(1, 1)).toString(), QStringLiteral("8"));
    QCOMPARE(changed.count(), 1);
    QTest::keyClick(shown.box(1), Qt::Key_Up);
    QCOMPARE(model->testType(model->index(1, 1)), 4u);
    QCOMPARE(model->testType(model->index(3, 1)), 4u);
}

void TestDialogImportResults::rowTurnedNegativeKeepsItsBox()
{
    Shown shown;
    QVERIFY(shown.load(withTypes));
    QComboBox *box = shown.box(3);
    box->setCurrentIndex(1);
    QCoreApplication::processEvents();
    QCOMPARE(shown.box(3), box);
    QVERIFY(box->isVisible());
    QCOMPARE(box->currentText(), QStringLiteral("Negative-earth insulation"));
    QCOMPARE(shown.dialog.model()->testType(shown.dialog.model()->index(3, 0)), 8u);
}

void TestDialogImportResults::keysAloneTurnASignAndSendARow()
{
    Shown shown;
    QVERIFY(shown.load(withTypes));
    QApplication::setActiveWindow(&shown.dialog);
    QVERIFY(QTest::qWaitForWindowActive(&shown.dialog, patience));
    shown.view->setFocus();
    shown.view->setCurrentIndex(shown.dialog.model()->index(1, 1));
    QTest::keyClick(shown.view, Qt::Key_F2);
    QCOMPARE(QApplication::focusWidget(), shown.box(1));
    QTest::keyClick(shown.box(1), Qt::Key_Down);
    QCOMPARE(shown.dialog.model()->testType(shown.dialog.model()->index(1, 1)), 8u);
    QTest::keyClick(shown.box(1), Qt::Key_Return);
    QTRY_COMPARE(QApplication::focusWidget(), shown.view);
    QTest::keyClick(shown.view, Qt::Key_Tab);
    QCOMPARE(QApplication::focusWidget(), shown.button);
    QTest::keyClick(shown.button, Qt::Key_Space);
    QCOMPARE(shown.sent.count(), 1);
    QCOMPARE(shown.sentRows(0), QList<int>{1});
}

void TestDialogImportResults::columnsAreWideEnoughForTheWords()
{
    Shown shown;
    QVERIFY(shown.load(withTypes));
    QVERIFY(shown.view->columnWidth(1) >= shown.box(1)->sizeHint().width());

    QVERIFY(shown.load("h\nTestType,A\n16,2\n"));
    const QFontMetrics metrics(shown.view->font());
    QVERIFY(shown.view->columnWidth(0) >= metrics.horizontalAdvance(QStringLiteral("AutoTest & Curve")));
}

void TestDialogImportResults::manyRowsLoad()
{
    QByteArray bytes("PV Tester,4711,V2.10,2\nTestType,Index,Voc (VDC),StatusCode,Checksum\n");
    for (int i = 0; i < 10000; ++i)
        bytes += "2," + QByteArray::number(i) + ",600.0,0,0001\n";
    Shown shown;
    QVERIFY(shown.load(bytes));
    QCOMPARE(shown.dialog.model()->rowCount(), 10000);
}

void TestDialogImportResults::germanFileLoadsUnderAGermanLocale()
{
    const LocaleSwitch german(QStringLiteral("de_DE"));
    Shown shown;
    QVERIFY(shown.load(QByteArray(withTypes).replace(',', ';').replace('.', ',')));
    QCOMPARE(shown.dialog.model()->columnCount(), 5);
    QVERIFY(shown.box(1));
    QCOMPARE(shown.dialog.model()->data(shown.dialog.model()->index(1, 2)).toString(),
             QStringLiteral("63,0"));
}

KELMAR_TEST_MAIN(TestDialogImportResults)
#include "tst_dialogimportresults.moc"

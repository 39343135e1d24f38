#include "app/core/Language.h"
#include "curve/data/CurveGraphModel.h"
#include "curve/data/CurveTree.h"
#include "curve/data/CurveTreeModel.h"
#include "curve/data/ModuleDatabase.h"
#include "curve/ui/CurveGraph.h"
#include "tests/curve/data/CurveSample.h"
#include "tests/curve/ui/CurveDesk.h"
#include "tests/curve/ui/ReportNumbers.h"
#include "tests/support/BoxWatcher.h"
#include "tests/support/TestMain.h"

#include <QAction>
#include <QColorDialog>
#include <QComboBox>
#include <QDesktopServices>
#include <QDialogButtonBox>
#include <QLineEdit>
#include <QProcess>
#include <QPushButton>
#include <QSpinBox>

using namespace IVCurve;

namespace {

const QString desktopScheme = QStringLiteral("file");

void inBothLanguages()
{
    QTest::addColumn<QString>("language");
    QTest::newRow("English") << "en";
    QTest::newRow("German") << "de";
}

void useLanguageOfRow()
{
    QFETCH(QString, language);
    useLanguage(language, QLocale(language));
}

void press(QWidget *dialog, QDialogButtonBox::StandardButton button)
{
    QTest::mouseClick(dialog->findChild<QDialogButtonBox *>()->button(button), Qt::LeftButton);
}

/// Chooses a colour, or none, in the dialog for colours.
std::function<void(QWidget *)> choosing(const QColor &colour)
{
    return [colour](QWidget *dialog) {
        auto *colours = qobject_cast<QColorDialog *>(dialog);
        if (!colour.isValid()) {
            colours->reject();
            return;
        }
        colours->setCurrentColor(colour);
        press(dialog, QDialogButtonBox::Ok);
    };
}

/// Chooses a module and a count in the chooser.
std::function<void(QWidget *)> assigning(int id, int series, QDialogButtonBox::StandardButton button)
{
    return [=](QWidget *dialog) {
        auto *modules = dialog->findChild<QComboBox *>("comboModule");
        modules->setCurrentIndex(modules->findData(id));
        dialog->findChild<QSpinBox *>("spinTotalInSeries")->setValue(series);
        press(dialog, button);
    };
}

} // namespace

/// What is done with the strings that are selected or were clicked.
class TestCurveStringCommands : public QObject
{
    Q_OBJECT

public slots:
    void openByDesktop(const QUrl &url) { m_opened.append(url.toLocalFile()); }

private slots:
    void init();
    void cleanup();

    void detailsAcceptedAreInTheFileAndInTheTreeAtOnce();
    void detailsCancelledChangeNothing();
    void detailsOfAFolderAreNotThere();
    void doubleClickOutsideTheNameOpensTheDetails();
    void doubleClickOnTheNameEditsIt();
    void detailsOfAStringThatIsNotShownAreAnException_data() { inBothLanguages(); }
    void detailsOfAStringThatIsNotShownAreAnException();

    void colourGoesToNodeRecordAndLines();
    void colourDialogCancelledChangesNothing();
    void colourStepOfTheDoubleClickSlotTakesTheSwatchOnly();
    void colourChosenForNoRowChangesNoRow();

    void moduleGoesToAllSelectedStrings();
    void chooserCancelledAssignsNothing();
    void emptyEntryTakesTheModuleAway();
    void assigningWithoutASelectionAsksNothing();
    void modulesAreManagedInTheirOwnDialog();

    void reportOfThreeStringsHasThemInTheOrderOfTheSelection_data() { inBothLanguages(); }
    void reportOfThreeStringsHasThemInTheOrderOfTheSelection();
    void reportOfFoldersOnlyHasEmptyTablesAndTheGraph_data() { inBothLanguages(); }
    void reportOfFoldersOnlyHasEmptyTablesAndTheGraph();
    void reportWithoutASelectionAsksNothing();
    void reportWithoutATemplateAsksNothing();
    void reportCancelledWritesAndOpensNothing();
    void reportIsOpenedAlsoWhenItCouldNotBeWritten();
    void dialogsStartWhereTheLastExportWent();

    void exportOfTwoCurvesAsksTwiceAndTheFirstMayBeCancelled_data() { inBothLanguages(); }
    void exportOfTwoCurvesAsksTwiceAndTheFirstMayBeCancelled();
    void exportOfEachKindProposesItsName_data();
    void exportOfEachKindProposesItsName();
    void exportIntoAFolderThatCannotBeWrittenGoesOnWithTheNextString();
    void exportOfAStringThatIsNotShownEndsTheExport();
    void stringWhoseRowHasGoneIsPassedBy();

private:
    QString path(const QString &name) const { return TestHome::instance()->path("out/" + name); }
    QString textOf(const QString &pdf) const;

    QStringList m_opened;
};

void TestCurveStringCommands::init()
{
    TestHome::instance()->reset();
    useLanguage("en", QLocale("en"));
    m_opened.clear();
    // The file dialog would ask about files that are there.
    QDir(path(QString())).removeRecursively();
    QDir().mkpath(path(QString()));
    QDesktopServices::setUrlHandler(desktopScheme, this, "openByDesktop");
    QSettings().setValue("Curves/HideAutomaticSaveWarning", true);
    CurveSample::writeCatalogue({"1, 'Poly 36', 8.6, 22.4, 8.1, 18.2, 0.0043, -0.078, 0.11, 0.28, 0, 1",
                                 "2, 'Mono 72', 9.6, 45.4, 9.1, 37.2, 0.0053, -0.17, 0.085, 0.41, 1, 1"});
}

void TestCurveStringCommands::cleanup()
{
    QDesktopServices::unsetUrlHandler(desktopScheme);
    QCOMPARE(QGuiApplication::overrideCursor(), nullptr);
}

QString TestCurveStringCommands::textOf(const QString &pdf) const
{
    QProcess process;
    process.start("pdftotext", {"-layout", pdf, "-"});
    if (!process.waitForFinished(patience) || process.exitCode() != 0)
        QTest::qFail("no PDF", __FILE__, __LINE__);
    return QString::fromUtf8(process.readAllStandardOutput());
}

void TestCurveStringCommands::detailsAcceptedAreInTheFileAndInTheTreeAtOnce()
{
    CurveDesk desk(CurveDesk::makeFile(2));
    desk.show();
    desk.selectStrings({1});
    BoxWatcher watcher;
    watcher.expectDialog("IVCurve::CurveDetailsDialog", [](QWidget *dialog) {
        auto *irradiance = dialog->findChild<QLineEdit *>("G");
        irradiance->selectAll();
        QTest::keyClicks(irradiance, "655");
        press(dialog, QDialogButtonBox::Ok);
    });
    desk.rightClick(desk.string(1), "View Details");
    QCOMPARE(desk.string(1, CurveTreeModel::IrradianceColumn).data().toString(), QString("655"));
    QCOMPARE(CurveSample::value(desk.document.filePath(), "SELECT Irradiance FROM Curves WHERE CurveID = 1")
                 .toInt(),
             655);
    QCOMPARE(desk.graph->model()->record(1).header().irradiance, QString("655"));
    QCOMPARE(desk.lines("STCLineCount"), 1);
    // Nothing of it waits for a save.
    QVERIFY(!desk.document.isModified());
}

void TestCurveStringCommands::detailsCancelledChangeNothing()
{
    CurveDesk desk(CurveDesk::makeFile(1));
    desk.show();
    desk.selectStrings({1});
    BoxWatcher watcher;
    watcher.expectDialog("IVCurve::CurveDetailsDialog", [](QWidget *dialog) {
        QTest::keyClicks(dialog->findChild<QLineEdit *>("G"), "1");
        press(dialog, QDialogButtonBox::Cancel);
    });
    desk.rightClick(desk.string(1), "View Details");
    QCOMPARE(CurveSample::value(desk.document.filePath(), "SELECT Irradiance FROM Curves WHERE CurveID = 1")
                 .toInt(),
             803);
    QCOMPARE(desk.string(1, CurveTreeModel::IrradianceColumn).data().toString(), QString("803"));
}

void TestCurveStringCommands::detailsOfAFolderAreNotThere()
{
    CurveDesk desk(CurveDesk::makeFile(1));
    const BoxWatcher watcher;
    desk.document.slotViewDetails(desk.at({"Wall"}));
    desk.document.slotViewDetails(QModelIndex());
    desk.document.slotViewDetails();
    QVERIFY(!QApplication::activeModalWidget());
}

void TestCurveStringCommands::doubleClickOutsideTheNameOpensTheDetails()
{
    CurveDesk desk(CurveDesk::makeFile(1));
    desk.show();
    BoxWatcher watcher;
    int seen = 0;
    watcher.expectDialog("IVCurve::CurveDetailsDialog", [&seen](QWidget *dialog) {
        ++seen;
        press(dialog, QDialogButtonBox::Cancel);
    });
    const QPoint place = desk.tree->visualRect(desk.string(1, CurveTreeModel::TesterIndexColumn)).center();
    QTest::mouseClick(desk.tree->viewport(), Qt::LeftButton, Qt::NoModifier, place);
    QTest::mouseDClick(desk.tree->viewport(), Qt::LeftButton, Qt::NoModifier, place);
    QCOMPARE(seen, 1);
}

void TestCurveStringCommands::doubleClickOnTheNameEditsIt()
{
    CurveDesk desk(CurveDesk::makeFile(1));
    desk.show();
    const BoxWatcher watcher;
    const QPoint place = desk.tree->visualRect(desk.string(1)).center();
    QTest::mouseClick(desk.tree->viewport(), Qt::LeftButton, Qt::NoModifier, place);
    QTest::mouseDClick(desk.tree->viewport(), Qt::LeftButton, Qt::NoModifier, place);
    auto *editor = desk.tree->findChild<QLineEdit *>();
    QVERIFY(editor);
    editor->selectAll();
    QTest::keyClicks(editor, "East");
    QTest::keyClick(editor, Qt::Key_Return);
    QTRY_VERIFY(desk.at({"Roof", "East"}).isValid());
    QVERIFY(desk.document.isModified());
}

void TestCurveStringCommands::detailsOfAStringThatIsNotShownAreAnException()
{
    useLanguageOfRow();
    CurveDesk desk(CurveDesk::makeFile(1));
    BoxWatcher watcher;
    watcher.expect("invalid unordered_map<K, T> key", QMessageBox::Ok);
    desk.document.slotViewDetails(desk.string(1));
    QCOMPARE(watcher.boxes().size(), 1);
    QCOMPARE(watcher.boxes().first().title, QString("Kelmar"));
    QCOMPARE(watcher.boxes().first().icon, QMessageBox::Critical);
    QFETCH(QString, language);
    if (language == "en")
        QCOMPARE(watcher.texts().first(), QString("Exception thrown: invalid unordered_map<K, T> key"));
}

void TestCurveStringCommands::colourGoesToNodeRecordAndLines()
{
    CurveDesk desk(CurveDesk::makeFile(2));
    desk.show();
    desk.selectStrings({1, 2});
    desk.document.save();
    BoxWatcher watcher;
    watcher.expectDialog("QColorDialog", choosing(Qt::darkCyan));
    desk.rightClick(desk.string(2), "Set Colour");
    QCOMPARE(desk.model->item(desk.string(2))->colour, QColor(Qt::darkCyan));
    QCOMPARE(desk.graph->model()->record(2).colour(), QColor(Qt::darkCyan));
    QCOMPARE(desk.graph->linesStc().at(2)->pen().color(), QColor(Qt::darkCyan));
    QVERIFY(desk.graph->linesStc().at(1)->pen().color() != QColor(Qt::darkCyan));
    QVERIFY(desk.document.isModified());
    QVERIFY(desk.isEnabled("actionSave"));
    desk.document.save();
    QCOMPARE(CurveSample::value(desk.document.filePath(), "SELECT Colour FROM TreeNodes WHERE CurveID = 2")
                 .toString(),
             QColor(Qt::darkCyan).name());
}

void TestCurveStringCommands::colourDialogCancelledChangesNothing()
{
    CurveDesk desk(CurveDesk::makeFile(1));
    desk.show();
    desk.selectStrings({1});
    const QColor before = desk.model->item(desk.string(1))->colour;
    BoxWatcher watcher;
    watcher.expectDialog("QColorDialog", choosing(QColor()));
    desk.rightClick(desk.string(1), "Set Colour");
    QCOMPARE(desk.model->item(desk.string(1))->colour, before);
    QVERIFY(!desk.document.isModified());
}

void TestCurveStringCommands::colourStepOfTheDoubleClickSlotTakesTheSwatchOnly()
{
    CurveDesk desk(CurveDesk::makeFile(1));
    desk.show();
    desk.selectStrings({1});
    desk.document.slotDoubleClickTree(QModelIndex());
    desk.document.slotDoubleClickTree(desk.string(1));
    QVERIFY(!desk.document.isModified());
    BoxWatcher watcher;
    watcher.expectDialog("IVCurve::CurveDetailsDialog",
                         [](QWidget *dialog) { press(dialog, QDialogButtonBox::Cancel); });
    desk.document.slotDoubleClickTree(desk.string(1, CurveTreeModel::DateColumn));
    watcher.expectDialog("QColorDialog", choosing(Qt::magenta));
    desk.document.slotDoubleClickTree(desk.string(1, CurveTreeModel::ColourColumn));
    QCOMPARE(desk.model->item(desk.string(1))->colour, QColor(Qt::magenta));
    QVERIFY(desk.document.isModified());
}

void TestCurveStringCommands::colourChosenForNoRowChangesNoRow()
{
    CurveDesk desk(CurveDesk::makeFile(1));
    desk.show();
    desk.rightClick(QModelIndex());
    BoxWatcher watcher;
    watcher.expectDialog("QColorDialog", choosing(Qt::magenta));
    desk.document.slotSetColour();
    QVERIFY(!desk.model->item(desk.at({"Roof"}))->colour.isValid());
    QVERIFY(!desk.model->item(desk.string(1))->colour.isValid());
    // The last right click is done with: there is nothing more to colour.
    desk.document.slotSetColour();
}

void TestCurveStringCommands::moduleGoesToAllSelectedStrings()
{
    CurveDesk desk(CurveDesk::makeFile(3));
    desk.show();
    desk.select({desk.at({"Wall"}), desk.string(1), desk.string(3)});
    BoxWatcher watcher;
    watcher.expectDialog("IVCurve::CurveModulesChooser", assigning(2, 14, QDialogButtonBox::Ok));
    desk.rightClick(desk.string(2), desk.action("actionAssignModule")->text());
    const QString modules =
        "SELECT group_concat(ifnull(ModuleID, '-') || ':' || ifnull(ModuleSeries, '-')) FROM Curves";
    QCOMPARE(CurveSample::value(desk.document.filePath(), modules).toString(), QString("2:14,-:-,2:14"));
    QCOMPARE(desk.graph->model()->record(3).module().voc, 45.4);
    desk.action("actionShowNOM")->setChecked(true);
    QCOMPARE(desk.lines("NOMLineCount"), 2);
}

void TestCurveStringCommands::chooserCancelledAssignsNothing()
{
    CurveDesk desk(CurveDesk::makeFile(1));
    desk.selectStrings({1});
    BoxWatcher watcher;
    watcher.expectDialog("IVCurve::CurveModulesChooser", assigning(2, 14, QDialogButtonBox::Cancel));
    desk.document.slotAssignModule();
    QVERIFY(CurveSample::value(desk.document.filePath(), "SELECT ModuleID FROM Curves").isNull());
}

void TestCurveStringCommands::emptyEntryTakesTheModuleAway()
{
    CurveDesk desk(CurveDesk::makeFile(2));
    desk.selectStrings({1, 2});
    BoxWatcher watcher;
    watcher.expectDialog("IVCurve::CurveModulesChooser", assigning(1, 20, QDialogButtonBox::Ok));
    desk.document.slotAssignModule();
    QVERIFY(!desk.graph->model()->record(1).nominalCurve().isEmpty());
    watcher.expectDialog("IVCurve::CurveModulesChooser", assigning(0, 20, QDialogButtonBox::Ok));
    desk.document.slotAssignModule();
    QVERIFY(desk.graph->model()->record(1).nominalCurve().isEmpty());
    QCOMPARE(
        CurveSample::value(desk.document.filePath(), "SELECT group_concat(ModuleID) FROM Curves").toString(),
        QString("0,0"));
}

void TestCurveStringCommands::assigningWithoutASelectionAsksNothing()
{
    CurveDesk desk(CurveDesk::makeFile(1));
    const BoxWatcher watcher;
    desk.document.slotAssignModule();
}

void TestCurveStringCommands::modulesAreManagedInTheirOwnDialog()
{
    CurveDesk desk(CurveDesk::makeFile(1));
    BoxWatcher watcher;
    const QWidget *parent = nullptr;
    watcher.expectDialog("IVCurve::CurveModulesDlg", [&parent](QWidget *dialog) {
        parent = dialog->parentWidget();
        dialog->close();
    });
    desk.action("actionManageModules")->trigger();
    QCOMPARE(parent, static_cast<const QWidget *>(&desk.document));
}

void TestCurveStringCommands::reportOfThreeStringsHasThemInTheOrderOfTheSelection()
{
    useLanguageOfRow();
    CurveDesk desk(CurveDesk::makeFile(4));
    desk.show();
    desk.select({desk.string(4), desk.at({"Wall"}), desk.string(1), desk.string(2)});
    const QString pdf = path("reports/three.pdf");
    QDir().mkpath(path("reports"));
    BoxWatcher watcher;
    watcher.expectFileDialog(pdf);
    desk.rightClick(desk.string(1), desk.action("actionCurveReport")->text());
    const QStringList pages = textOf(pdf).split('\f');
    QCOMPARE(pages.size(), 3);
    QVERIFY(pages[0].indexOf("String 4") < pages[0].indexOf("String 1"));
    QVERIFY(pages[0].indexOf("String 1") < pages[0].indexOf("String 2"));
    QCOMPARE(pages[0].count("String 4"), 2);
    QCOMPARE(pages[0].count("Wall"), 0);
    QVERIFY(!pages[0].contains("String 3"));
    QVERIFY(pages[1].contains("String 4 (803)"));
    QCOMPARE(m_opened, QStringList{pdf});
    QCOMPARE(QSettings().value("Directories/LastExportDir").toString(), path("reports"));
    // What is on paper is what the file gives.
    const QMap<QString, QString> numbers = reportNumbers(desk.document.filePath(), 4);
    for (const QString &number : numbers)
        QVERIFY2(pages[0].contains(number), qPrintable(number));
}

void TestCurveStringCommands::reportOfFoldersOnlyHasEmptyTablesAndTheGraph()
{
    useLanguageOfRow();
    CurveDesk desk(CurveDesk::makeFile(2));
    desk.select({desk.at({"Roof"}), desk.at({"Wall"})});
    BoxWatcher watcher;
    watcher.expectFileDialog(path("folders.pdf"));
    desk.document.slotCurveReport();
    const QStringList pages = textOf(path("folders.pdf")).split('\f');
    QCOMPARE(pages.size(), 3);
    QVERIFY(pages[0].contains("Pmpp"));
    QVERIFY(!pages[0].contains("String 1"));
    QVERIFY(!pages[0].contains("Roof"));
    // The strings of the folder are drawn all the same.
    QVERIFY(pages[1].contains("String 1 (803)"));
    QVERIFY(pages[1].contains("Roof, Wall"));
}

void TestCurveStringCommands::reportWithoutASelectionAsksNothing()
{
    CurveDesk desk(CurveDesk::makeFile(1));
    const BoxWatcher watcher;
    desk.document.slotCurveReport();
    QVERIFY(m_opened.isEmpty());
}

void TestCurveStringCommands::reportWithoutATemplateAsksNothing()
{
    CurveDesk desk(CurveDesk::makeFile(1));
    desk.selectStrings({1});
    useLanguage("fr", QLocale("fr"));
    const BoxWatcher watcher;
    desk.document.slotCurveReport();
    QVERIFY(m_opened.isEmpty());
}

void TestCurveStringCommands::reportCancelledWritesAndOpensNothing()
{
    CurveDesk desk(CurveDesk::makeFile(1));
    desk.selectStrings({1});
    BoxWatcher watcher;
    watcher.expectFileDialog(QString());
    desk.document.slotCurveReport();
    QVERIFY(m_opened.isEmpty());
    QVERIFY(!QSettings().contains("Directories/LastExportDir"));
}

void TestCurveStringCommands::reportIsOpenedAlsoWhenItCouldNotBeWritten()
{
    CurveDesk desk(CurveDesk::makeFile(1));
    desk.selectStrings({1});
    BoxWatcher watcher;
    const QString lost = path("no such folder/report.pdf");
    watcher.expectFileDialog(lost);
    desk.document.slotCurveReport();
    QVERIFY(!QFile::exists(lost));
    QCOMPARE(m_opened, QStringList{lost});
}

void TestCurveStringCommands::dialogsStartWhereTheLastExportWent()
{
    CurveDesk desk(CurveDesk::makeFile(1));
    desk.selectStrings({1});
    BoxWatcher watcher;
    watcher.expectFileDialog(QString());
    desk.document.slotCurveReport();
    watcher.expectFileDialog(QString());
    desk.document.slotExportPoints();
    QDir().mkpath(path("last"));
    QSettings().setValue("Directories/LastExportDir", path("last"));
    watcher.expectFileDialog(QString());
    desk.document.slotExportPoints();
    const auto dialogs = watcher.fileDialogs();
    QCOMPARE(dialogs[0],
             (QStringList{"Save PDF file", TestHome::instance()->projectsRoot(), "PDF file (*.pdf)"}));
    QCOMPARE(dialogs[1],
             (QStringList{"Save CSV file", TestHome::instance()->projectsRoot() + "/String 1 MEAS",
                          "CSV file (*.csv)"}));
    QCOMPARE(dialogs[2].value(1), path("last/String 1 MEAS"));
}

void TestCurveStringCommands::exportOfTwoCurvesAsksTwiceAndTheFirstMayBeCancelled()
{
    useLanguageOfRow();
    CurveDesk desk(CurveDesk::makeFile(3));
    desk.show();
    desk.select({desk.string(3), desk.at({"Wall"}), desk.string(1)});
    BoxWatcher watcher;
    watcher.expectFileDialog(QString());
    watcher.expectFileDialog(path("second.csv"));
    desk.rightClick(desk.string(1));
    desk.action("actionExportPoints")->trigger();
    QCOMPARE(watcher.fileDialogs().size(), 2);
    QVERIFY(watcher.fileDialogs()[0][1].contains("String 3"));
    QVERIFY(watcher.fileDialogs()[1][1].contains("String 1"));
    const QList<QByteArray> lines = readFile(path("second.csv")).split('\n');
    QVERIFY(lines[0].startsWith("String 1 "));
    QFETCH(QString, language);
    QCOMPARE(lines[5], QByteArray(language == "de" ? "V;I" : "V,I"));
    QCOMPARE(lines.size(), 6 + 20 + 1);
}

void TestCurveStringCommands::exportOfEachKindProposesItsName_data()
{
    QTest::addColumn<QByteArray>("action");
    QTest::addColumn<QString>("name");
    QTest::newRow("measured") << QByteArray("actionExportPoints") << "String 1 MEAS";
    QTest::newRow("measured power") << QByteArray("actionExportPWRPoints") << "String 1 PWR";
    QTest::newRow("corrected") << QByteArray("actionExportPointsSTC") << "String 1 STC";
    QTest::newRow("corrected power") << QByteArray("actionExportPWRPointsSTC") << "String 1 STC PWR";
}

void TestCurveStringCommands::exportOfEachKindProposesItsName()
{
    QFETCH(QByteArray, action);
    QFETCH(QString, name);
    CurveDesk desk(CurveDesk::makeFile(1));
    desk.selectStrings({1});
    BoxWatcher watcher;
    watcher.expectFileDialog(path("kind.csv"));
    desk.action(action.constData())->trigger();
    QCOMPARE(QFileInfo(watcher.fileDialogs().value(0).value(1)).fileName(), name);
    QVERIFY(readFile(path("kind.csv")).startsWith(name.toUtf8() + "\n"));
}

void TestCurveStringCommands::exportIntoAFolderThatCannotBeWrittenGoesOnWithTheNextString()
{
    CurveDesk desk(CurveDesk::makeFile(2));
    desk.selectStrings({1, 2});
    const QString lost = path("no such folder/one.csv");
    BoxWatcher watcher;
    watcher.expectFileDialog(lost);
    watcher.expectFileDialog(path("two.csv"));
    watcher.expect(" Could not open file:\n " + lost, QMessageBox::Ok);
    desk.document.slotExportPoints();
    QVERIFY(readFile(path("two.csv")).startsWith("String 2 MEAS"));
}

void TestCurveStringCommands::exportOfAStringThatIsNotShownEndsTheExport()
{
    CurveDesk desk(CurveDesk::makeFile(3));
    desk.selectStrings({1, 2, 3});
    // As when a row of the selection is shown by another one no longer.
    desk.graph->model()->slotRowRemoved(desk.at({"Roof"}), 1, 1);
    BoxWatcher watcher;
    watcher.expectFileDialog(path("one.csv"));
    watcher.expect("Exception thrown: invalid unordered_map<K, T> key", QMessageBox::Ok);
    desk.document.slotExportPoints();
    QCOMPARE(watcher.fileDialogs().size(), 1);
    QVERIFY(QFile::exists(path("one.csv")));
}

void TestCurveStringCommands::stringWhoseRowHasGoneIsPassedBy()
{
    const QString file = CurveDesk::makeFile(2);
    auto first = std::make_unique<CurveDesk>(file);
    const CurveDesk &desk = *first;
    first->show();
    CurveSample::execute(file, {"DELETE FROM Curves WHERE CurveID = 1"});
    desk.selectStrings({1, 2});
    QCOMPARE(desk.lines("STCLineCount"), 1);
    BoxWatcher watcher;
    watcher.expectFileDialog(path("two.csv"));
    first->document.slotExportPoints();
    QVERIFY(watcher.fileDialogs().value(0).value(1).contains("String 2"));
    watcher.expectFileDialog(path("gone.pdf"));
    first->document.slotCurveReport();
    QCOMPARE(textOf(path("gone.pdf")).count("String 2 "), 3);
    watcher.expect("Exception thrown: Internal error: no data associated with string", QMessageBox::Ok);
    first->document.slotViewDetails(desk.string(1));
    watcher.expectDialog("QColorDialog", choosing(Qt::magenta));
    desk.rightClick(desk.string(1), "Set Colour");
    QCOMPARE(desk.model->item(desk.string(1))->colour, QColor(Qt::magenta));
    // When the file is opened again, its node is a folder.
    first->document.save();
    first.reset();
    const CurveDesk again(file);
    again.rightClick(again.string(1));
    QVERIFY(!again.isEnabled("actionViewDetails"));
}

KELMAR_TEST_MAIN(TestCurveStringCommands)
#include "tst_curvestringcommands.moc"

#include "curve/data/ModuleDatabase.h"
#include "curve/ui/CurveQSpinBox.h"
#include "res/Resources.h"
#include "tests/curve/data/CurveSample.h"
#include "tests/curve/ui/Details.h"
#include "tests/curve/ui/ModuleSample.h"
#include "tests/support/BoxWatcher.h"
#include "tests/support/TestMain.h"

using namespace IVCurve;

namespace {

const QString warning =
    QStringLiteral("Changes to the PV string data are automatically saved when OK is pressed.\n");

} // namespace

/// What Ok takes from the dialog about a string, under an English and under a German locale.
class TestCurveDetailsAccept : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase_data();
    void initTestCase() { initResources(); }
    void init();
    void cleanup();

    // Ok
    void warningSaysThatOkSaves();
    void tickedWarningComesNoMoreInAnyDialog();
    void warningIsRememberedEachTime();
    void untouchedDialogKeepsTheTextsOfTheSettings();
    void editedTextsAreTakenAsTheyStand();
    void textThatIsNoNumberIsDroppedInSilence();
    void lettersCannotBeTypedIntoNumbers();
    void temperatureOfTheSettingsIsThatOfTheMethod();
    void emptyEntryClearsTheCoefficientsAndOnOkTheModule();
    void anotherModuleIsReadFromTheCatalogueAndKeepsTheCounts();
    void seriesSetToZeroByHandStays();
    void countsBeyondTheBoxStayUnlessTouched();
    void blaesserOpensOnItsPageAndIsLeftForGood();

    // Without a catalogue
    void closedCatalogueLeavesTheListEmptyAndOkTakesTheModuleAway();
    void closedCatalogueLeavesAStringWithoutModuleAlone();
    void catalogueWithoutItsTableIsToldAndTheDialogWorks();
};

void TestCurveDetailsAccept::initTestCase_data()
{
    QTest::addColumn<QString>("locale");
    QTest::newRow("English") << "en";
    QTest::newRow("German") << "de";
}

void TestCurveDetailsAccept::init()
{
    QFETCH_GLOBAL(QString, locale);
    TestHome::instance()->reset();
    QLocale::setDefault(QLocale(locale));
    ModuleSample::write();
}

void TestCurveDetailsAccept::cleanup()
{
    CurveSample::forgetCatalogue();
}

void TestCurveDetailsAccept::warningSaysThatOkSaves()
{
    BoxWatcher watcher;
    const Details details;
    watcher.expect(warning, QMessageBox::Ok);
    details.pressOk();
    QCOMPARE(details.result, int(QDialog::Accepted));
    const BoxWatcher::Box box = watcher.boxes().value(0);
    QCOMPARE(box.text, warning);
    QCOMPARE(box.checkBoxText, QString("Do not show this message again"));
    QCOMPARE(box.buttons, QMessageBox::Ok);
    QCOMPARE(box.icon, QMessageBox::NoIcon);
    QCOMPARE(box.parent, &details.dialog);
}

void TestCurveDetailsAccept::tickedWarningComesNoMoreInAnyDialog()
{
    BoxWatcher watcher;
    {
        const Details details;
        watcher.expect(warning, QMessageBox::Ok, true);
        details.pressOk();
    }
    QCOMPARE(QSettings().value("Curves/HideAutomaticSaveWarning"), QVariant(true));
    StringRecord another = CurveSample::record();
    another.setCurveId(13);
    const Details details(another);
    details.pressOk();
    QCOMPARE(details.result, int(QDialog::Accepted));
    QCOMPARE(watcher.boxes().size(), 1);
}

void TestCurveDetailsAccept::warningIsRememberedEachTime()
{
    BoxWatcher watcher;
    for (int i = 0; i < 2; ++i) {
        const Details details;
        watcher.expect(warning, QMessageBox::Ok);
        details.pressOk();
        QCOMPARE(QSettings().value("Curves/HideAutomaticSaveWarning"), QVariant(false));
    }
    QCOMPARE(watcher.boxes().size(), 2);
}

void TestCurveDetailsAccept::untouchedDialogKeepsTheTextsOfTheSettings()
{
    StringRecord record = sampleString();
    record.settings().delta = "half an entry";
    record.settings().a.clear();
    record.settings().G = "17";
    record.settings().c = "kept";
    const Details details(record);
    details.pressOkSilently();
    const STCparameters &settings = details.record.settings();
    QCOMPARE(settings.delta, QString("half an entry"));
    QCOMPARE(settings.a, QString());
    QCOMPARE(settings.c, QString("kept"));
    QCOMPARE(settings.G, QString("17"));
    QCOMPARE(settings.alpha, shownNumber(0.004));
    QCOMPARE(settings.beta, shownNumber(-0.15));
    QCOMPARE(settings.algorithm, quint8(2));
    QCOMPARE(details.record.header().irradiance, QString("803"));
    QCOMPARE(details.record.module().moduleId, ModuleSample::sunrise);
    QCOMPARE(details.record.module().series, 3);
    QCOMPARE(details.record.curveId(), 12u);
    QCOMPARE(details.dialog.curveId(), 12u);
}

void TestCurveDetailsAccept::editedTextsAreTakenAsTheyStand()
{
    const Details details;
    const QString precise = QLocale().toString(0.123456789, 'g', 9);
    details.type("G", "0" + shownNumber(812.5));
    details.type("Ta", shownNumber(19.25));
    details.type("Tpv", "47");
    details.type("input_delta", precise);
    details.type("input_K", shownNumber(0.002));
    details.type("input_a", shownNumber(0.07));
    details.type("input_b", shownNumber(-0.005));
    details.at<QDoubleSpinBox>("input_alpha")->setValue(0.00512);
    details.at<QDoubleSpinBox>("input_Rs")->setValue(-1.5);
    details.pressOkSilently();
    const STCparameters &settings = details.record.settings();
    const StringHeader &header = details.record.header();
    QCOMPARE(header.irradiance, "0" + shownNumber(812.5));
    QCOMPARE(settings.G, "0" + shownNumber(812.5));
    QCOMPARE(header.ambientTemp, shownNumber(19.25));
    QCOMPARE(header.cellTemp, QString("47"));
    QCOMPARE(settings.Tpv, QString("47"));
    QCOMPARE(settings.delta, precise);
    QCOMPARE(settings.K, shownNumber(0.002));
    QCOMPARE(settings.a, shownNumber(0.07));
    QCOMPARE(settings.b, shownNumber(-0.005));
    QCOMPARE(settings.alpha, shownNumber(0.00512));
    QCOMPARE(settings.Rs, shownNumber(-1.5));
}

void TestCurveDetailsAccept::textThatIsNoNumberIsDroppedInSilence()
{
    const Details details;
    details.type("input_a", "much");
    details.type("input_delta", "-");
    details.type("G", "-");
    details.type("Tpv", "-");
    for (const char *name : {"Ta", "input_K"}) {
        details.at(name)->selectAll();
        QTest::keyClick(details.at(name), Qt::Key_Delete);
    }
    details.pressOkSilently();
    const StringRecord before = sampleString();
    const STCparameters &settings = details.record.settings();
    QCOMPARE(settings.a, before.settings().a);
    QCOMPARE(settings.delta, before.settings().delta);
    QCOMPARE(settings.K, before.settings().K);
    QCOMPARE(settings.G, before.settings().G);
    QCOMPARE(details.record.header().irradiance, before.header().irradiance);
    QCOMPARE(details.record.header().cellTemp, before.header().cellTemp);
    QCOMPARE(details.record.header().ambientTemp, before.header().ambientTemp);
    // The settings take the field's text whether it is a number or not.
    QCOMPARE(settings.Tpv, QString("-"));
}

void TestCurveDetailsAccept::lettersCannotBeTypedIntoNumbers()
{
    const Details details;
    for (const char *name : {"G", "Tpv", "Ta", "input_delta", "input_K"}) {
        details.type(name, "1x2");
        QCOMPARE(details.text(name), QString("12"));
    }
}

void TestCurveDetailsAccept::temperatureOfTheSettingsIsThatOfTheMethod()
{
    for (const quint8 algorithm : {0, 1, 2}) {
        StringRecord record = sampleString();
        record.settings().algorithm = algorithm;
        const Details details(record);
        details.pressOkSilently();
        QCOMPARE(details.record.settings().algorithm, algorithm);
        QCOMPARE(details.record.settings().Tpv, algorithm == 0 ? shownNumber(21.5) : QString("45"));
    }
    StringRecord record = sampleString();
    record.settings().algorithm = 77;
    const Details details(record);
    QCOMPARE(details.page(), QString("pageAnderson"));
    details.pressOkSilently();
    QCOMPARE(details.record.settings().algorithm, quint8(2));
}

void TestCurveDetailsAccept::emptyEntryClearsTheCoefficientsAndOnOkTheModule()
{
    const Details details;
    details.modules()->setCurrentIndex(details.modules()->count() - 1);
    QCOMPARE(details.value("input_alpha"), 0.0);
    QCOMPARE(details.value("input_beta"), 0.0);
    QCOMPARE(details.value("input_Rs"), 0.0);
    QCOMPARE(details.text("input_delta"), QString());
    QVERIFY(details.at("input_delta")->isModified());
    for (const char *name : {"lblVoc", "lblIsc", "lblVmpp", "lblImpp"})
        QCOMPARE(details.label(name), QString());
    QCOMPARE(details.record.module().moduleId, ModuleSample::sunrise);
    details.pressOkSilently();
    const ModuleBinding &module = details.record.module();
    QCOMPARE(module.moduleId, 0u);
    QCOMPARE(module.voc, 0.0);
    QCOMPARE(module.shape, 0.0);
    QCOMPARE(details.record.settings().alpha, QString("0"));
    // An empty text is no number: the old one stays.
    QCOMPARE(details.record.settings().delta, shownNumber(0.085));
}

void TestCurveDetailsAccept::anotherModuleIsReadFromTheCatalogueAndKeepsTheCounts()
{
    const Details details;
    details.choose("Polaris 230");
    details.count("spinTotalInParallel", 4);
    details.pressOkSilently();
    const ModuleBinding &module = details.record.module();
    QCOMPARE(module.moduleId, ModuleSample::polaris);
    QCOMPARE(module.voc, 37.8);
    QCOMPARE(module.isc, 8.01);
    QCOMPARE(module.vmp, 30.5);
    QCOMPARE(module.imp, 7.54);
    QCOMPARE(module.series, 3);
    QCOMPARE(module.parallel, 4);
    QVERIFY(module.shape > 0);
}

void TestCurveDetailsAccept::seriesSetToZeroByHandStays()
{
    const Details details;
    details.count("spinTotalInSeries", 0);
    details.count("spinTotalInParallel", 0);
    details.pressOkSilently();
    QCOMPARE(details.record.module().series, 3);
    QCOMPARE(details.record.module().parallel, 2);
}

void TestCurveDetailsAccept::countsBeyondTheBoxStayUnlessTouched()
{
    StringRecord record = sampleString();
    record.module().series = 150;
    const Details details(record);
    QCOMPARE(details.at<QSpinBox>("spinTotalInSeries")->value(), 99);
    QVERIFY(!details.at<CurveQSpinBox>("spinTotalInSeries")->userChanged);
    details.pressOkSilently();
    QCOMPARE(details.record.module().series, 150);
    const Details touched(record);
    touched.count("spinTotalInSeries", 98);
    touched.pressOkSilently();
    QCOMPARE(touched.record.module().series, 98);
}

void TestCurveDetailsAccept::blaesserOpensOnItsPageAndIsLeftForGood()
{
    StringRecord record = sampleString();
    record.settings().algorithm = STCparameters::BlaesserAlgorithm;
    const Details details(record);
    details.show("tabModule");
    QCOMPARE(details.page(), QString("pageBlaesser"));
    QVERIFY(!details.at<QRadioButton>("radioAnderson")->isChecked());
    QVERIFY(!details.at<QRadioButton>("radioIEC")->isChecked());
    QVERIFY(!details.at<QRadioButton>("radioBlaesser")->isVisible());
    details.pressRadio("radioIEC");
    QCOMPARE(details.page(), QString("pageIEC"));
    details.pressRadio("radioAnderson");
    QCOMPARE(details.page(), QString("pageAnderson"));
    details.pressOkSilently();
    QCOMPARE(details.record.settings().algorithm, quint8(2));
    const Details again(details.record);
    again.show("tabModule");
    QVERIFY(!again.at<QRadioButton>("radioBlaesser")->isVisible());
    QCOMPARE(again.page(), QString("pageAnderson"));
}

void TestCurveDetailsAccept::closedCatalogueLeavesTheListEmptyAndOkTakesTheModuleAway()
{
    const StringRecord record = sampleString();
    CurveSample::forgetCatalogue();
    BoxWatcher watcher;
    watcher.expect("File is missing", QMessageBox::Ok);
    const Details details(record);
    QCOMPARE(details.modules()->count(), 0);
    QCOMPARE(details.label("lblVoc"), shownNumber(40.1234));
    QCOMPARE(details.value("input_alpha"), 0.004);
    details.pressOkSilently();
    QCOMPARE(details.record.module().moduleId, 0u);
    QCOMPARE(details.record.module().voc, 0.0);
    QCOMPARE(details.record.module().series, 3);
    QCOMPARE(watcher.boxes().size(), 1);
}

void TestCurveDetailsAccept::closedCatalogueLeavesAStringWithoutModuleAlone()
{
    StringRecord record = sampleString();
    record.module() = ModuleBinding();
    CurveSample::forgetCatalogue();
    BoxWatcher watcher;
    watcher.expect("File is missing", QMessageBox::Ok);
    const Details details(record);
    details.pressOkSilently();
    QCOMPARE(details.record.module().moduleId, 0u);
    QCOMPARE(details.record.settings().alpha, shownNumber(0.004));
}

void TestCurveDetailsAccept::catalogueWithoutItsTableIsToldAndTheDialogWorks()
{
    const StringRecord record = sampleString();
    CurveSample::execute(ModuleDatabase::defaultPath(), {"DROP TABLE Modules"});
    BoxWatcher watcher;
    watcher.expect("no such table", QMessageBox::Ok); // the list
    watcher.expect("no such table", QMessageBox::Ok); // the string's own module
    const Details details(record);
    QCOMPARE(details.moduleNames(), QStringList(QString()));
    QCOMPARE(details.modules()->currentIndex(), -1);
    details.pressOkSilently();
    QCOMPARE(watcher.boxes().size(), 2);
}

KELMAR_TEST_MAIN(TestCurveDetailsAccept)
#include "tst_curvedetailsaccept.moc"

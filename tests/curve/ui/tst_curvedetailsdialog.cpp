#include "curve/data/ModuleDatabase.h"
#include "curve/ui/CurveQSpinBox.h"
#include "curve/ui/TestDate.h"
#include "res/Resources.h"
#include "tests/curve/data/CurveSample.h"
#include "tests/curve/ui/Details.h"
#include "tests/curve/ui/ModuleSample.h"
#include "tests/support/BoxWatcher.h"
#include "tests/support/TestMain.h"

using namespace IVCurve;

namespace {

/// Answers the entry of percent: tells what it offers, and enters a value unless that is NaN.
void enterPercent(BoxWatcher &watcher, double value, double *offered = nullptr)
{
    watcher.expectDialog("QInputDialog", [value, offered](QWidget *widget) {
        auto *entry = qobject_cast<QInputDialog *>(widget);
        QCOMPARE(entry->windowTitle(), QString());
        QCOMPARE(entry->labelText(), QString("Enter value in percent per centigrade"));
        QCOMPARE(entry->doubleDecimals(), 4);
        if (offered)
            *offered = entry->doubleValue();
        if (qIsNaN(value)) {
            entry->reject();
            return;
        }
        entry->setDoubleValue(value);
        entry->accept();
    });
}

} // namespace

/// The dialog about a string, under an English and under a German locale.
class TestCurveDetailsDialog : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase_data();
    void initTestCase() { initResources(); }
    void init();
    void cleanup();

    // What is seen
    void readingsAreShownAsTheTesterToldThem();
    void nameIsShownAsWrittenAboveTheTabs();
    void readingsOfTheTesterCannotBeEdited();
    void settingsAndModuleOfTheStringAreShown();
    void formHasItsTitlesAndRanges();
    void modulesAreListedByNameWithNoModuleLast();
    void equalNamesAreBothListedAndTheStringsOwnIsCurrent();
    void moduleThatIsNoFavouriteStaysInViewAmongFavourites();
    void moduleThatIsGoneFromTheCatalogueLeavesNoneChosen();
    void favouritesAreRememberedForTheNextDialog();

    // What is changed before Ok
    void chosenModuleBringsItsCoefficientsAndRatings();
    void starLeavesTheStringsModuleChosen();
    void starChoosesTheModuleAfreshWithWhatTheCatalogueSays();
    void methodsShowTheirPages();
    void connectedSlotsOfTheMethodsFollowTheirState();

    // Keys and buttons
    void enterInAFieldPressesCancelAndTheEditIsLost_data();
    void enterInAFieldPressesCancelAndTheEditIsLost();
    void enterOnOkAccepts();
    void cancelLeavesTheRecordAsItWas();

    // Percent
    void percentOfTheCurrentBecomesAlpha();
    void percentOfTheVoltageBecomesBeta();
    void cancelledPercentLeavesTheCoefficient();
    void zeroRatingsAreEmptyAndPercentTellsThatTheyAreMissing();
};

void TestCurveDetailsDialog::initTestCase_data()
{
    QTest::addColumn<QString>("locale");
    QTest::newRow("English") << "en";
    QTest::newRow("German") << "de";
}

void TestCurveDetailsDialog::init()
{
    QFETCH_GLOBAL(QString, locale);
    TestHome::instance()->reset();
    QLocale::setDefault(QLocale(locale));
    ModuleSample::write();
}

void TestCurveDetailsDialog::cleanup()
{
    CurveSample::forgetCatalogue();
}

void TestCurveDetailsDialog::readingsAreShownAsTheTesterToldThem()
{
    const Details details;
    const std::pair<const char *, QString> fields[] = {{"TesterSerNo", "5120-0347"},
                                                       {"MemoryLoc", "7"},
                                                       {"G", "803"},
                                                       {"Tpv", "45"},
                                                       {"Ta", shownNumber(21.5)},
                                                       {"Voc", "600"},
                                                       {"Isc", shownNumber(8.03)},
                                                       {"Vmp", shownNumber(482.7)},
                                                       {"Imp", shownNumber(7.61)},
                                                       {"FF", shownNumber(76.2)},
                                                       {"Iclamp", shownNumber(7.6)},
                                                       {"Rpe", shownNumber(0.36)},
                                                       {"Viso", "1000"},
                                                       {"Riso", ">200"},
                                                       {"TestDate", formatTestDate("2016-05-12T10:11:29")}};
    for (const auto &[name, text] : fields)
        QCOMPARE(details.text(name), text);
    QVERIFY(details.text("TestDate").contains("10:11:29"));

    StringRecord empty = CurveSample::record();
    empty.header() = StringHeader();
    empty.header().memLocation = 12345;
    const Details blank(empty);
    QCOMPARE(blank.text("MemoryLoc"), QString("12345"));
    for (const char *name : {"TesterSerNo", "TestDate", "G", "Ta", "Riso"})
        QCOMPARE(blank.text(name), QString());
}

void TestCurveDetailsDialog::nameIsShownAsWrittenAboveTheTabs()
{
    const Details details;
    const auto *title = details.at<QLabel>("titleLabel");
    QCOMPARE(title->text(), QString("<b>Roof</b> & yard"));
    QCOMPARE(title->textFormat(), Qt::PlainText);
    QCOMPARE(title->font().pointSize(), 12);
    QVERIFY(title->geometry().bottom() <= details.at<QTabWidget>("tabWidget")->geometry().top());

    StringRecord record = sampleString();
    record.header().name = QString(400, 'W');
    const Details endless(record);
    QVERIFY2(endless.dialog.width() < 700, qPrintable(QString::number(endless.dialog.width())));
}

void TestCurveDetailsDialog::readingsOfTheTesterCannotBeEdited()
{
    const Details details;
    for (const char *name : {"TesterSerNo", "MemoryLoc", "TestDate", "Voc", "Isc", "Vmp", "Imp", "FF",
                             "Iclamp", "Rpe", "Viso", "Riso"}) {
        const auto *edit = details.at(name);
        QVERIFY2(!edit->isEnabled() && edit->isReadOnly() && !edit->acceptDrops(), name);
        QCOMPARE(edit->styleSheet(), QString("background-color: rgb(240, 240, 240);\ncolor: rgb(0, 0, 0);"));
    }
    for (const char *name : {"G", "Tpv", "Ta"}) {
        QVERIFY2(details.at(name)->isEnabled() && !details.at(name)->isReadOnly(), name);
        QVERIFY(qobject_cast<const QDoubleValidator *>(details.at(name)->validator()));
    }
}

void TestCurveDetailsDialog::settingsAndModuleOfTheStringAreShown()
{
    StringRecord record = sampleString();
    record.settings().delta = shownNumber(0.1125);
    const Details details(record);
    QCOMPARE(details.modules()->currentText(), QString("Sunrise 300 half-cut, 120 cells"));
    QCOMPARE(details.modules()->currentData().toUInt(), ModuleSample::sunrise);
    QCOMPARE(details.label("lblVoc"), shownNumber(40.1234));
    QCOMPARE(details.label("lblIsc"), shownNumber(9.87));
    QCOMPARE(details.label("lblVmpp"), shownNumber(33.5));
    QCOMPARE(details.label("lblImpp"), shownNumber(9.4));
    QCOMPARE(details.at<QSpinBox>("spinTotalInSeries")->value(), 3);
    QCOMPARE(details.at<QSpinBox>("spinTotalInParallel")->value(), 2);
    // The string's own coefficients, not those of its module.
    QCOMPARE(details.value("input_alpha"), 0.004);
    QCOMPARE(details.value("input_beta"), -0.15);
    QCOMPARE(details.value("input_Rs"), 0.35);
    QCOMPARE(details.text("input_delta"), shownNumber(0.1125));
    QCOMPARE(details.text("input_K"), shownNumber(0.00125));
    QCOMPARE(details.text("input_a"), shownNumber(0.06));
    QCOMPARE(details.text("input_b"), shownNumber(-0.004));
    QVERIFY(details.at<QRadioButton>("radioAnderson")->isChecked());
    QCOMPARE(details.page(), QString("pageAnderson"));
}

void TestCurveDetailsDialog::formHasItsTitlesAndRanges()
{
    const Details details;
    QCOMPARE(details.dialog.windowTitle(), QString("Curve Details"));
    QVERIFY(!details.dialog.windowIcon().isNull());
    const auto *tabs = details.at<QTabWidget>("tabWidget");
    QCOMPARE(tabs->tabText(0) + '|' + tabs->tabText(1), QString("Test Details|Module Details"));
    QCOMPARE(tabs->currentIndex(), 0);
    const struct
    {
        const char *name;
        double least;
        double most;
        QString toolTip;
    } boxes[] = {
        {"input_alpha", 0, 10, "Current-Temperature coefficient e.g. 0.003"},
        {"input_beta", -10, 0, "Voltage-Temperature coefficient e.g. -0.14"},
        {"input_Rs", -100, 100, "Current-Temperature coefficient e.g. 0.003"},
    };
    for (const auto &box : boxes) {
        const auto *spin = details.at<QDoubleSpinBox>(box.name);
        QCOMPARE(spin->decimals(), 5);
        QCOMPARE(spin->minimum(), box.least);
        QCOMPARE(spin->maximum(), box.most);
        QCOMPARE(spin->singleStep(), 0.001);
        QCOMPARE(spin->toolTip(), box.toolTip);
    }
    const auto *star = details.at<QPushButton>("toggleFavourites");
    QVERIFY(star->isCheckable() && star->text().isEmpty() && star->font().pointSize() == 6);
    QCOMPARE(details.modules()->sizeAdjustPolicy(), QComboBox::AdjustToMinimumContentsLength);
    QVERIFY(!details.modules()->duplicatesEnabled());
    QCOMPARE(details.at<CurveQSpinBox>("spinTotalInSeries")->maximum(), 99);
    QCOMPARE(details.at<QPushButton>("btnAlphaPercent")->toolTip(),
             QString("Enter value as a percentage of Isc"));
    QCOMPARE(details.at<QPushButton>("btnBetaPercent")->toolTip(),
             QString("Enter value as a percentage of Voc"));
    QCOMPARE(details.at("input_delta")->toolTip(),
             QString("Anderson's delta coefficient:\nmono-Crystalline 0.085\nmulti-Crystalline "
                     "0.110\nThin-Film 0.063"));
    for (const char *name : {"input_delta", "input_K"})
        QVERIFY(qobject_cast<const QDoubleValidator *>(details.at(name)->validator()));
    for (const char *name : {"input_a", "input_b"})
        QVERIFY(!details.at(name)->validator());
    QVERIFY(details.button(QDialogButtonBox::Cancel)->isDefault());
}

void TestCurveDetailsDialog::modulesAreListedByNameWithNoModuleLast()
{
    const Details details;
    QCOMPARE(details.moduleNames(), ModuleSample::names() << QString());
    const QVariant none = details.modules()->itemData(details.modules()->count() - 1);
    QVERIFY(none.isNull());
}

void TestCurveDetailsDialog::equalNamesAreBothListedAndTheStringsOwnIsCurrent()
{
    CurveSample::execute(ModuleDatabase::defaultPath(),
                         {"UPDATE Modules SET Description = 'Roof of the neighbour'"});
    Details details(sampleString(ModuleSample::polaris));
    QCOMPARE(details.modules()->count(), 5);
    QCOMPARE(details.modules()->currentData().toUInt(), ModuleSample::polaris);
    details.pressOkSilently();
    QCOMPARE(details.record.module().moduleId, ModuleSample::polaris);
}

void TestCurveDetailsDialog::moduleThatIsNoFavouriteStaysInViewAmongFavourites()
{
    QSettings().setValue("Curves/ShowModuleFavouritesOnly", true);
    const Details details(sampleString(ModuleSample::polaris));
    QVERIFY(details.at<QPushButton>("toggleFavourites")->isChecked());
    QCOMPARE(details.moduleNames(), QStringList({"Roof of the neighbour", "Sunrise 300 half-cut, 120 cells",
                                                 "Polaris 230", QString()}));
    QCOMPARE(details.modules()->currentText(), QString("Polaris 230"));
    const Details favourite(sampleString(ModuleSample::sunrise));
    QCOMPARE(favourite.modules()->count(), 3);
    QCOMPARE(favourite.modules()->currentIndex(), 1);
}

void TestCurveDetailsDialog::moduleThatIsGoneFromTheCatalogueLeavesNoneChosen()
{
    StringRecord record = sampleString();
    CurveSample::execute(ModuleDatabase::defaultPath(), {"DELETE FROM Modules WHERE _id = 3"});
    const Details details(record);
    QCOMPARE(details.modules()->currentIndex(), -1);
    QCOMPARE(details.modules()->count(), 4);
    // What the record holds is shown, wherever it came from.
    QCOMPARE(details.label("lblVoc"), shownNumber(40.1234));
    QCOMPARE(details.value("input_alpha"), 0.004);
}

void TestCurveDetailsDialog::favouritesAreRememberedForTheNextDialog()
{
    {
        const Details details;
        QVERIFY(!details.at<QPushButton>("toggleFavourites")->isChecked());
        QCOMPARE(QSettings().value("Curves/ShowModuleFavouritesOnly"), QVariant(false));
        const qint64 unlit = details.at<QPushButton>("toggleFavourites")->icon().cacheKey();
        details.press("toggleFavourites");
        QVERIFY(details.at<QPushButton>("toggleFavourites")->icon().cacheKey() != unlit);
        QCOMPARE(QSettings().value("Curves/ShowModuleFavouritesOnly"), QVariant(true));
    }
    const Details next;
    QVERIFY(next.at<QPushButton>("toggleFavourites")->isChecked());
    QCOMPARE(next.modules()->count(), 3);
}

void TestCurveDetailsDialog::chosenModuleBringsItsCoefficientsAndRatings()
{
    Details details;
    details.choose("Roof of the neighbour");
    QCOMPARE(details.value("input_alpha"), 0.00425);
    QCOMPARE(details.value("input_beta"), -0.12);
    QCOMPARE(details.value("input_Rs"), 0.25);
    QCOMPARE(details.text("input_delta"), shownNumber(0.11));
    QCOMPARE(details.label("lblVoc"), shownNumber(37.5));
    QCOMPARE(details.label("lblIsc"), shownNumber(8.5));
    QCOMPARE(details.label("lblVmpp"), "30");
    QCOMPARE(details.label("lblImpp"), "8");
    // Nothing is taken before Ok.
    QCOMPARE(details.record.module().moduleId, ModuleSample::sunrise);
    QCOMPARE(details.record.settings().alpha, shownNumber(0.004));
    details.pressOkSilently();
    QCOMPARE(details.record.settings().alpha, shownNumber(0.00425));
    QCOMPARE(details.record.settings().delta, shownNumber(0.11));
}

void TestCurveDetailsDialog::starLeavesTheStringsModuleChosen()
{
    const Details details(sampleString(ModuleSample::polaris));
    details.press("toggleFavourites");
    QCOMPARE(details.modules()->currentText(), QString("Polaris 230"));
    details.press("toggleFavourites");
    QCOMPARE(details.modules()->currentText(), QString("Polaris 230"));
    QCOMPARE(details.moduleNames(), ModuleSample::names() << QString());
}

void TestCurveDetailsDialog::starChoosesTheModuleAfreshWithWhatTheCatalogueSays()
{
    const Details details(sampleString(ModuleSample::polaris));
    QCOMPARE(details.value("input_alpha"), 0.004);
    details.press("toggleFavourites");
    QCOMPARE(details.value("input_alpha"), 0.00465);
    QCOMPARE(details.text("input_delta"), shownNumber(0.11));
    QCOMPARE(details.label("lblVoc"), shownNumber(37.8));

    StringRecord bare = sampleString();
    bare.module() = ModuleBinding();
    const Details without(bare);
    QCOMPARE(without.value("input_alpha"), 0.004);
    without.press("toggleFavourites");
    QCOMPARE(without.modules()->currentIndex(), -1);
    QCOMPARE(without.value("input_alpha"), 0.0);
    QCOMPARE(without.text("input_delta"), QString());
}

void TestCurveDetailsDialog::methodsShowTheirPages()
{
    const Details details;
    details.show("tabModule");
    details.pressRadio("radioIEC");
    QCOMPARE(details.page(), QString("pageIEC"));
    details.pressRadio("radioAnderson");
    QCOMPARE(details.page(), QString("pageAnderson"));
    QVERIFY(!details.at<QRadioButton>("radioBlaesser")->isVisible());
    QVERIFY(!details.at<QRadioButton>("radioBlaesser")->isEnabled());
    QVERIFY(details.at<QWidget>("pageBlaesser")->isAncestorOf(details.at("input_a")));
    QVERIFY(details.at<QWidget>("pageBlaesser")->isAncestorOf(details.at("input_b")));
    QVERIFY(details.at<QWidget>("pageIEC")->isAncestorOf(details.at("input_K")));
    QVERIFY(details.at<QWidget>("pageAnderson")->isAncestorOf(details.at("input_delta")));
}

void TestCurveDetailsDialog::connectedSlotsOfTheMethodsFollowTheirState()
{
    Details details;
    details.dialog.slotBlaesserToggled(true);
    QCOMPARE(details.page(), QString("pageBlaesser"));
    details.dialog.slotBlaesserToggled(false);
    QCOMPARE(details.page(), QString("pageIEC"));
    details.dialog.slotIECToggled(false);
    QCOMPARE(details.page(), QString("pageAnderson"));
    details.dialog.slotIECToggled(true);
    QCOMPARE(details.page(), QString("pageIEC"));
}

void TestCurveDetailsDialog::enterInAFieldPressesCancelAndTheEditIsLost_data()
{
    QTest::addColumn<QString>("field");
    for (const char *name :
         {"G", "Tpv", "Ta", "input_delta", "input_alpha", "spinTotalInSeries", "comboModule"})
        QTest::newRow(name) << name;
}

void TestCurveDetailsDialog::enterInAFieldPressesCancelAndTheEditIsLost()
{
    QFETCH(QString, field);
    const Details details;
    details.type("G", "950");
    details.count("spinTotalInSeries", 9);
    if (field.contains('_') || field.contains("in") || field == "comboModule")
        details.show("tabModule");
    auto *widget = details.at<QWidget>(field.toLatin1());
    widget->setFocus();
    QTest::keyClick(widget, Qt::Key_Return);
    QCOMPARE(details.result, int(QDialog::Rejected));
    QVERIFY(!details.dialog.isVisible());
    QCOMPARE(details.record.header().irradiance, QString("803"));
    QCOMPARE(details.record.module().series, 3);
}

void TestCurveDetailsDialog::enterOnOkAccepts()
{
    QSettings().setValue("Curves/HideAutomaticSaveWarning", true);
    const Details details;
    QVERIFY(QTest::qWaitForWindowActive(&const_cast<CurveDetailsDialog &>(details.dialog), patience));
    details.type("G", "950");
    details.button(QDialogButtonBox::Ok)->setFocus();
    QTest::keyClick(details.button(QDialogButtonBox::Ok), Qt::Key_Return);
    QCOMPARE(details.result, int(QDialog::Accepted));
    QCOMPARE(details.record.header().irradiance, QString("950"));
}

void TestCurveDetailsDialog::cancelLeavesTheRecordAsItWas()
{
    const Details details;
    details.type("G", "950");
    details.type("input_delta", "1");
    details.choose("Polaris 230");
    details.count("spinTotalInSeries", 9);
    QTest::mouseClick(details.button(QDialogButtonBox::Cancel), Qt::LeftButton);
    QCOMPARE(details.result, int(QDialog::Rejected));
    const StringRecord before = sampleString();
    QCOMPARE(details.record.header().irradiance, before.header().irradiance);
    QCOMPARE(details.record.settings().delta, before.settings().delta);
    QCOMPARE(details.record.settings().alpha, before.settings().alpha);
    QCOMPARE(details.record.module().moduleId, before.module().moduleId);
    QCOMPARE(details.record.module().series, before.module().series);
    QVERIFY(!QSettings().contains("Curves/HideAutomaticSaveWarning"));
}

void TestCurveDetailsDialog::percentOfTheCurrentBecomesAlpha()
{
    BoxWatcher watcher;
    const Details details;
    double offered = 0;
    enterPercent(watcher, 0.06, &offered);
    details.press("btnAlphaPercent");
    QCOMPARE(offered, 0.0405); // 0.004 / 9.87 in percent, with the four decimals of the entry
    QCOMPARE(details.value("input_alpha"), 0.00592); // 0.06 % of 9.87, with the five decimals of the box
    enterPercent(watcher, -5);
    details.press("btnAlphaPercent");
    QCOMPARE(details.value("input_alpha"), 0.0);
}

void TestCurveDetailsDialog::percentOfTheVoltageBecomesBeta()
{
    BoxWatcher watcher;
    const Details details;
    double offered = 0;
    enterPercent(watcher, -0.3, &offered);
    details.press("btnBetaPercent");
    QCOMPARE(offered, -0.3738);
    QCOMPARE(details.value("input_beta"), -0.12037);
    enterPercent(watcher, 5);
    details.press("btnBetaPercent");
    QCOMPARE(details.value("input_beta"), 0.0);
    enterPercent(watcher, -200);
    details.press("btnBetaPercent");
    QCOMPARE(details.value("input_beta"), -10.0); // all of 40.1234 V, as far as the box goes
}

void TestCurveDetailsDialog::cancelledPercentLeavesTheCoefficient()
{
    BoxWatcher watcher;
    const Details details;
    enterPercent(watcher, qQNaN());
    details.press("btnAlphaPercent");
    QCOMPARE(details.value("input_alpha"), 0.004);
}

void TestCurveDetailsDialog::zeroRatingsAreEmptyAndPercentTellsThatTheyAreMissing()
{
    BoxWatcher watcher;
    const Details details(sampleString(ModuleSample::zenith));
    for (const char *name : {"lblVoc", "lblIsc", "lblVmpp", "lblImpp"})
        QCOMPARE(details.label(name), QString());
    watcher.expect("Isc is missing or zero", QMessageBox::Ok);
    details.press("btnAlphaPercent");
    watcher.expect("Voc is missing or zero", QMessageBox::Ok);
    details.press("btnBetaPercent");
    QCOMPARE(watcher.boxes().size(), 2);
    for (const BoxWatcher::Box &box : watcher.boxes()) {
        QCOMPARE(box.title, QString("Kelmar"));
        QCOMPARE(box.icon, QMessageBox::Warning);
        QCOMPARE(box.buttons, QMessageBox::Ok);
        QCOMPARE(box.parent, &details.dialog);
    }
    QCOMPARE(details.value("input_alpha"), 0.004);
}

KELMAR_TEST_MAIN(TestCurveDetailsDialog)
#include "tst_curvedetailsdialog.moc"

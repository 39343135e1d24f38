#include "curve/data/CurveDatabase.h"
#include "curve/data/CurveGraphModel.h"
#include "curve/data/ModuleDatabase.h"
#include "curve/ui/CurveDetailsDialog.h"
#include "curve/ui/CurveModulesChooser.h"
#include "res/Resources.h"
#include "tests/curve/data/CurveSample.h"
#include "tests/curve/ui/ModuleSample.h"
#include "tests/support/BoxWatcher.h"
#include "tests/support/TestMain.h"

using namespace IVCurve;

namespace {

const QString favouritesKey = QStringLiteral("Curves/ShowModuleFavouritesOnly");

QComboBox *modulesOf(const QDialog &dialog)
{
    return dialog.findChild<QComboBox *>("comboModule");
}

QPushButton *starOf(const QDialog &dialog)
{
    return dialog.findChild<QPushButton *>("toggleFavourites");
}

QSpinBox *seriesOf(const QDialog &dialog)
{
    return dialog.findChild<QSpinBox *>("spinTotalInSeries");
}

void press(const QDialog &dialog, QDialogButtonBox::StandardButton which)
{
    QTest::mouseClick(dialog.findChild<QDialogButtonBox *>("buttonBox")->button(which), Qt::LeftButton);
}

QStringList names(const QDialog &dialog)
{
    QStringList all;
    for (int i = 0; i < modulesOf(dialog)->count(); ++i)
        all.append(modulesOf(dialog)->itemText(i));
    return all;
}

/// Starts a dialog about a string, as the user sees it next.
template <typename Look> void inDetails(const Look &look)
{
    StringRecord record = CurveSample::record();
    const CurveDetailsDialog details(&record);
    look(details);
}

} // namespace

/// The choice of a module for strings, under an English and under a German locale.
class TestCurveModulesChooser : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase_data();
    void initTestCase() { initResources(); }
    void init();
    void cleanup();

    void formHasItsTitleAndProperties();
    void modulesAreListedByNameWithNoModuleFirst();
    void chosenModuleAndCountAreHandedOver();
    void favouritesAreListedWhereTheStarIsLit();
    void starTakesTheChoiceBack();
    void starShowsInTheDetailsNextTime();
    void starOfTheDetailsShowsHereNextTime();
    void emptyEntryTakesTheModuleFromAllStrings();
    void cancelIsRejected();
    void closedCatalogueLeavesTheListEmpty();
    void catalogueClosedMeanwhileIsOpenedAgain();
    void catalogueRemovedMeanwhileLeavesTheListAsItIs();
    void noFavouritesLeaveTheEmptyEntry();
};

void TestCurveModulesChooser::initTestCase_data()
{
    QTest::addColumn<QString>("locale");
    QTest::newRow("English") << "en";
    QTest::newRow("German") << "de";
}

void TestCurveModulesChooser::init()
{
    QFETCH_GLOBAL(QString, locale);
    TestHome::instance()->reset();
    QLocale::setDefault(QLocale(locale));
    ModuleSample::write();
}

void TestCurveModulesChooser::cleanup()
{
    CurveSample::forgetCatalogue();
}

void TestCurveModulesChooser::formHasItsTitleAndProperties()
{
    const CurveModulesChooser chooser;
    QCOMPARE(chooser.windowTitle(), QString("Choose Module"));
    QVERIFY(!chooser.windowIcon().isNull());
    QCOMPARE(chooser.size(), QSize(367, 149));
    QCOMPARE(modulesOf(chooser)->sizeAdjustPolicy(), QComboBox::AdjustToMinimumContentsLength);
    QVERIFY(!modulesOf(chooser)->duplicatesEnabled());
    QCOMPARE(starOf(chooser)->font().pointSize(), 6);
    QVERIFY(starOf(chooser)->isCheckable());
    QCOMPARE(seriesOf(chooser)->alignment(), Qt::AlignRight | Qt::AlignVCenter);
    QCOMPARE(seriesOf(chooser)->minimum(), 0);
    QCOMPARE(seriesOf(chooser)->maximum(), 99);
    const auto *buttons = chooser.findChild<QDialogButtonBox *>("buttonBox");
    QCOMPARE(buttons->standardButtons(), QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
}

void TestCurveModulesChooser::modulesAreListedByNameWithNoModuleFirst()
{
    const CurveModulesChooser chooser;
    QCOMPARE(names(chooser), QStringList(QString()) + ModuleSample::names());
    QCOMPARE(modulesOf(chooser)->currentIndex(), 0);
    const QVariant none = modulesOf(chooser)->itemData(0);
    QVERIFY(!none.isNull());
    QCOMPARE(none.toInt(), 0);
    QCOMPARE(modulesOf(chooser)->itemData(1).toUInt(), ModuleSample::polaris);
    QCOMPARE(chooser.selectedId(), 0u);
    QCOMPARE(chooser.seriesCount(), 1);
    QCOMPARE(seriesOf(chooser)->value(), 1);
}

void TestCurveModulesChooser::chosenModuleAndCountAreHandedOver()
{
    CurveModulesChooser chooser;
    chooser.show();
    modulesOf(chooser)->setCurrentIndex(2);
    seriesOf(chooser)->setValue(17);
    press(chooser, QDialogButtonBox::Ok);
    QCOMPARE(chooser.result(), int(QDialog::Accepted));
    QCOMPARE(chooser.selectedId(), ModuleSample::userModule);
    QCOMPARE(chooser.seriesCount(), 17);
    chooser.slotModuleSelected(-1);
    QCOMPARE(chooser.selectedId(), 0u);
}

void TestCurveModulesChooser::favouritesAreListedWhereTheStarIsLit()
{
    QSettings().setValue(favouritesKey, true);
    const CurveModulesChooser chooser;
    QVERIFY(starOf(chooser)->isChecked());
    QCOMPARE(names(chooser),
             QStringList({QString(), "Roof of the neighbour", "Sunrise 300 half-cut, 120 cells"}));
}

void TestCurveModulesChooser::starTakesTheChoiceBack()
{
    CurveModulesChooser chooser;
    chooser.show();
    const qint64 unlit = starOf(chooser)->icon().cacheKey();
    modulesOf(chooser)->setCurrentIndex(2);
    QTest::mouseClick(starOf(chooser), Qt::LeftButton);
    QVERIFY(starOf(chooser)->icon().cacheKey() != unlit);
    QCOMPARE(modulesOf(chooser)->currentIndex(), 0);
    QCOMPARE(chooser.selectedId(), 0u);
}

void TestCurveModulesChooser::starShowsInTheDetailsNextTime()
{
    for (const bool lit : {true, false}) {
        CurveModulesChooser chooser;
        chooser.show();
        QTest::mouseClick(starOf(chooser), Qt::LeftButton);
        QCOMPARE(QSettings().value(favouritesKey), QVariant(lit));
        inDetails([lit](const QDialog &details) {
            QCOMPARE(starOf(details)->isChecked(), lit);
            QCOMPARE(modulesOf(details)->count(), lit ? 3 : 5);
        });
    }
}

void TestCurveModulesChooser::starOfTheDetailsShowsHereNextTime()
{
    inDetails([](const QDialog &details) { starOf(details)->click(); });
    const CurveModulesChooser chooser;
    QVERIFY(starOf(chooser)->isChecked());
    QCOMPARE(modulesOf(chooser)->count(), 3);
}

void TestCurveModulesChooser::emptyEntryTakesTheModuleFromAllStrings()
{
    const QString path = CurveSample::newFile();
    {
        const CurveDatabase database(path);
        const auto sunrise = ModuleDatabase::instance().table()->row(ModuleSample::sunrise);
        QVector<quint32> strings;
        for (int i = 0; i < 3; ++i) {
            strings.append(database.graphModel()->insertString(CurveSample::record()));
            database.graphModel()->assignModule(strings.last(), *sunrise, 12);
        }
        QCOMPARE(CurveSample::value(path, "SELECT count(*) FROM Curves WHERE ModuleID = 3").toInt(), 3);

        CurveModulesChooser chooser;
        chooser.show();
        modulesOf(chooser)->setCurrentIndex(3);
        modulesOf(chooser)->setCurrentIndex(0);
        press(chooser, QDialogButtonBox::Ok);
        QCOMPARE(chooser.result(), int(QDialog::Accepted));
        CurveModuleRow row;
        row.id = chooser.selectedId();
        for (const quint32 string : qAsConst(strings))
            database.graphModel()->assignModule(string, row, chooser.seriesCount());
    }
    QCOMPARE(CurveSample::value(path, "SELECT count(*) FROM Curves WHERE ModuleID = 0 AND ModuleSeries = 1 "
                                      "AND ModuleParallel = 1 AND STC_alpha IS NULL")
                 .toInt(),
             3);
}

void TestCurveModulesChooser::cancelIsRejected()
{
    CurveModulesChooser chooser;
    chooser.show();
    press(chooser, QDialogButtonBox::Cancel);
    QCOMPARE(chooser.result(), int(QDialog::Rejected));
    QVERIFY(!chooser.isVisible());
}

void TestCurveModulesChooser::closedCatalogueLeavesTheListEmpty()
{
    CurveSample::forgetCatalogue();
    BoxWatcher watcher;
    // It is looked for each time that the list is filled.
    watcher.expect("File is missing", QMessageBox::Ok);
    watcher.expect("File is missing", QMessageBox::Ok);
    CurveModulesChooser chooser;
    QCOMPARE(modulesOf(chooser)->count(), 0);
    chooser.show();
    press(chooser, QDialogButtonBox::Ok);
    QCOMPARE(chooser.result(), int(QDialog::Accepted));
    QCOMPARE(chooser.selectedId(), 0u);
    QCOMPARE(chooser.seriesCount(), 1);
}

void TestCurveModulesChooser::catalogueClosedMeanwhileIsOpenedAgain()
{
    const CurveModulesChooser chooser;
    ModuleDatabase::instance().close();
    starOf(chooser)->click();
    QCOMPARE(modulesOf(chooser)->count(), 3);
}

void TestCurveModulesChooser::catalogueRemovedMeanwhileLeavesTheListAsItIs()
{
    const CurveModulesChooser chooser;
    CurveSample::forgetCatalogue();
    BoxWatcher watcher;
    watcher.expect("File is missing", QMessageBox::Ok);
    starOf(chooser)->click();
    QCOMPARE(names(chooser), QStringList(QString()) + ModuleSample::names());
    QCOMPARE(watcher.boxes().size(), 1);
}

void TestCurveModulesChooser::noFavouritesLeaveTheEmptyEntry()
{
    CurveSample::execute(ModuleDatabase::defaultPath(), {"UPDATE Modules SET Favourite = 0"});
    QSettings().setValue(favouritesKey, true);
    const CurveModulesChooser chooser;
    QCOMPARE(names(chooser), QStringList(QString()));
}

KELMAR_TEST_MAIN(TestCurveModulesChooser)
#include "tst_curvemoduleschooser.moc"

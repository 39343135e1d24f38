#include "app/core/DocumentType.h"
#include "app/core/Folders.h"
#include "app/core/Language.h"
#include "app/dialogs/DialogSettings.h"
#include "app/shell/DocumentFactory.h"
#include "app/shell/LanguageMenu.h"
#include "res/Resources.h"
#include "tests/support/BoxWatcher.h"
#include "tests/support/TestMain.h"

#include <QActionGroup>
#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>

class TestDialogSettings : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { initResources(); }
    void init();

    void pagesAndTextsAreThoseOfTheForm();
    void rootInForceIsShown();
    void okWithTheSameRootTellsAndStoresNothing();
    void anotherRootIsStoredAndTold();
    void missingRootIsAskedForAndNoKeepsTheDialogOpen();
    void missingRootIsMadeAfterYes();
    void rootThatCannotBeMadeKeepsTheDialogOpen();
    void cancelKeepsTheRoot();
    void browsingStartsAtTheShownRootAndStoresNothingYet();
    void cancelledBrowsingKeepsTheShownRoot();

    void favouriteThatWasNeverMadeCannotBeRestored();
    void favouriteLikeThePristineDocumentCannotBeRestored();
    void changedFavouriteTellsWhenItWasChanged_data();
    void changedFavouriteTellsWhenItWasChanged();
    void favouriteIsRestoredAtThePress_data();
    void favouriteIsRestoredAtThePress();
    void restoredFavouriteStaysAfterCancel();
    void favouriteIsComparedWithTheSessionsLanguage();
    void afterALanguageChangeNothingCanBeRestoredUntilAFavouriteIsSaved();

private:
    static QPushButton *restoreButton(const QWidget &dialog, const QString &suffix)
    {
        return dialog.findChild<QPushButton *>("restore" + shortName(suffix));
    }
    static QString state(const QWidget &dialog, const QString &suffix)
    {
        return dialog.findChild<QLabel *>("state" + shortName(suffix))->text();
    }
    static QString shortName(const QString &suffix) { return suffix.mid(3).toUpper(); }
    static QLineEdit *rootEdit(const QWidget &dialog) { return dialog.findChild<QLineEdit *>("rootEdit"); }
    static void click(QDialog &dialog, QDialogButtonBox::StandardButton button)
    {
        QTest::mouseClick(dialog.findChild<QDialogButtonBox *>()->button(button), Qt::LeftButton);
    }
    static QByteArray pristine(const QString &language, const QString &suffix)
    {
        return readFile(":/res/reports_" + language + "/default." + suffix);
    }
    static QString storedRoot() { return QSettings().value("Directories/RootDir").toString(); }

    QString m_root;
};

void TestDialogSettings::init()
{
    TestHome::instance()->reset();
    useLanguage("en", QLocale("en"));
    Folders::instance(true);
    m_root = Folders::instance()->projectsRoot();
}

void TestDialogSettings::pagesAndTextsAreThoseOfTheForm()
{
    const DialogSettings dialog;
    QCOMPARE(dialog.windowTitle(), QString("Settings"));
    const auto *pages = dialog.findChild<QTabWidget *>();
    QCOMPARE(pages->count(), 2);
    QCOMPARE(pages->tabText(0), QString("Projects Directory"));
    QCOMPARE(pages->tabText(1), QString("Report Favourites"));
    QCOMPARE(dialog.findChild<QLabel *>("rootLabel")->text(), QString("The root directory of all projects:"));
    QCOMPARE(dialog.findChild<QLabel *>("favouritesLabel")->text(),
             QString("If a favourite has been saved for a particular report type, then this will be used "
                     "when creating a new report. Use the buttons below to restore the reports to their "
                     "defaults."));
    QCOMPARE(dialog.findChild<QPushButton *>("browse")->text(), QString("Browse..."));
    const QStringList texts{"Restore Inspection Report", "Restore PV Array Test Report",
                            "Restore Vertification Certificate", "Restore Checklist"};
    const QStringList suffixes{"kelir", "kelatr", "kelvc", "kelchk"};
    int above = 0;
    for (int i = 0; i < texts.size(); ++i) {
        const QPushButton *button = restoreButton(dialog, suffixes.at(i));
        QCOMPARE(button->text(), texts.at(i));
        pages->widget(1)->layout()->activate();
        QVERIFY(i == 0 || button->y() > above);
        above = button->y();
    }
}

void TestDialogSettings::rootInForceIsShown()
{
    QCOMPARE(rootEdit(DialogSettings())->text(), m_root);
}

void TestDialogSettings::okWithTheSameRootTellsAndStoresNothing()
{
    DialogSettings dialog;
    dialog.show();
    QSettings().remove("Directories/RootDir");
    QSignalSpy spy(Folders::instance(), &Folders::projectsFolderChanged);
    click(dialog, QDialogButtonBox::Ok);
    QCOMPARE(dialog.result(), int(QDialog::Accepted));
    QCOMPARE(spy.size(), 0);
    QVERIFY(!QSettings().contains("Directories/RootDir"));
}

void TestDialogSettings::anotherRootIsStoredAndTold()
{
    const QString other = TestHome::instance()->path("other root");
    QVERIFY(QDir().mkpath(other));
    DialogSettings dialog;
    dialog.show();
    rootEdit(dialog)->setText(other);
    QSignalSpy spy(Folders::instance(), &Folders::projectsFolderChanged);
    click(dialog, QDialogButtonBox::Ok);
    QCOMPARE(dialog.result(), int(QDialog::Accepted));
    QVERIFY(!dialog.isVisible());
    QCOMPARE(spy, QList<QList<QVariant>>{{other}});
    QCOMPARE(storedRoot(), other);
}

void TestDialogSettings::missingRootIsAskedForAndNoKeepsTheDialogOpen()
{
    const QString missing = TestHome::instance()->path("missing");
    BoxWatcher watcher;
    watcher.expect("The path \"" + missing + "\" does not exist. Would you like to create it?",
                   QMessageBox::No);
    DialogSettings dialog;
    dialog.show();
    rootEdit(dialog)->setText(missing);
    click(dialog, QDialogButtonBox::Ok);
    QVERIFY(dialog.isVisible());
    QCOMPARE(rootEdit(dialog)->text(), missing);
    QCOMPARE(storedRoot(), m_root);
    QCOMPARE(Folders::instance()->projectsRoot(), m_root);
    QVERIFY(!QFileInfo::exists(missing));
}

void TestDialogSettings::missingRootIsMadeAfterYes()
{
    const QString made = TestHome::instance()->path("made/by/ok");
    BoxWatcher watcher;
    watcher.expect("does not exist", QMessageBox::Yes);
    DialogSettings dialog;
    dialog.show();
    rootEdit(dialog)->setText(made);
    click(dialog, QDialogButtonBox::Ok);
    QVERIFY(!dialog.isVisible());
    QVERIFY(QFileInfo(made).isDir());
    QCOMPARE(storedRoot(), made);
}

void TestDialogSettings::rootThatCannotBeMadeKeepsTheDialogOpen()
{
    const QString file = TestHome::instance()->path("a file");
    writeFile(file, "in the way");
    BoxWatcher watcher;
    watcher.expect("does not exist", QMessageBox::Yes);
    watcher.expect("Error creating \"" + file + "/below\"", QMessageBox::Ok);
    DialogSettings dialog;
    dialog.show();
    rootEdit(dialog)->setText(file + "/below");
    click(dialog, QDialogButtonBox::Ok);
    QVERIFY(dialog.isVisible());
    QCOMPARE(storedRoot(), m_root);
}

void TestDialogSettings::cancelKeepsTheRoot()
{
    DialogSettings dialog;
    dialog.show();
    rootEdit(dialog)->setText(TestHome::instance()->path());
    click(dialog, QDialogButtonBox::Cancel);
    QVERIFY(!dialog.isVisible());
    QCOMPARE(storedRoot(), m_root);
}

void TestDialogSettings::browsingStartsAtTheShownRootAndStoresNothingYet()
{
    const QString other = TestHome::instance()->path("picked");
    QVERIFY(QDir().mkpath(other));
    BoxWatcher watcher;
    watcher.expectFileDialog(other);
    DialogSettings dialog;
    dialog.show();
    // The dialog comes at the press: nobody is there to let the button go.
    QTest::mousePress(dialog.findChild<QPushButton *>("browse"), Qt::LeftButton);
    QCOMPARE(rootEdit(dialog)->text(), other);
    QCOMPARE(storedRoot(), m_root);
    QCOMPARE(watcher.fileDialogs().size(), 1);
    QCOMPARE(watcher.fileDialogs().first().at(0), QString("Select Projects Root Directory"));
    QCOMPARE(watcher.fileDialogs().first().at(1), m_root);
}

void TestDialogSettings::cancelledBrowsingKeepsTheShownRoot()
{
    BoxWatcher watcher;
    watcher.expectFileDialog(QString());
    DialogSettings dialog;
    dialog.show();
    QTest::mousePress(dialog.findChild<QPushButton *>("browse"), Qt::LeftButton);
    QCOMPARE(rootEdit(dialog)->text(), m_root);
}

void TestDialogSettings::favouriteThatWasNeverMadeCannotBeRestored()
{
    const DialogSettings dialog;
    for (const char *suffix : {"kelir", "kelatr", "kelvc", "kelchk"}) {
        QVERIFY2(!restoreButton(dialog, suffix)->isEnabled(), suffix);
        QCOMPARE(state(dialog, suffix), QString("The default report has not been modified."));
    }
}

void TestDialogSettings::favouriteLikeThePristineDocumentCannotBeRestored()
{
    for (const char *suffix : {"kelir", "kelatr", "kelvc", "kelchk"})
        writeFile(favouritePath(suffix), pristine("en", suffix));
    const DialogSettings dialog;
    for (const char *suffix : {"kelir", "kelatr", "kelvc", "kelchk"}) {
        QVERIFY2(!restoreButton(dialog, suffix)->isEnabled(), suffix);
        QCOMPARE(state(dialog, suffix), QString("The default report has not been modified."));
    }
}

void TestDialogSettings::changedFavouriteTellsWhenItWasChanged_data()
{
    QTest::addColumn<QString>("suffix");
    for (const char *suffix : {"kelir", "kelatr", "kelvc", "kelchk"})
        QTest::newRow(suffix) << suffix;
}

void TestDialogSettings::changedFavouriteTellsWhenItWasChanged()
{
    QFETCH(QString, suffix);
    writeFile(favouritePath(suffix), "changed");
    QFile file(favouritePath(suffix));
    QVERIFY(file.open(QIODevice::ReadWrite));
    QVERIFY(
        file.setFileTime(QDateTime(QDate(2024, 3, 9), QTime(17, 5, 2)), QFileDevice::FileModificationTime));
    file.close();
    const DialogSettings dialog;
    for (const char *other : {"kelir", "kelatr", "kelvc", "kelchk"})
        QCOMPARE(restoreButton(dialog, other)->isEnabled(), suffix == other);
    QCOMPARE(state(dialog, suffix), QString("File last modified on Sat Mar 9 17:05:02 2024."));
}

void TestDialogSettings::favouriteIsRestoredAtThePress_data()
{
    changedFavouriteTellsWhenItWasChanged_data();
}

void TestDialogSettings::favouriteIsRestoredAtThePress()
{
    QFETCH(QString, suffix);
    for (const char *each : {"kelir", "kelatr", "kelvc", "kelchk"})
        writeFile(favouritePath(each), "changed");
    DialogSettings dialog;
    dialog.show();
    dialog.findChild<QTabWidget *>()->setCurrentIndex(1);
    QTest::mousePress(restoreButton(dialog, suffix), Qt::LeftButton);
    for (const char *each : {"kelir", "kelatr", "kelvc", "kelchk"}) {
        const bool restored = suffix == each;
        QCOMPARE(readFile(favouritePath(each)), restored ? pristine("en", each) : "changed");
        QCOMPARE(restoreButton(dialog, each)->isEnabled(), !restored);
    }
    QCOMPARE(state(dialog, suffix), QString("The default report has not been modified."));
    const auto forAll = QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup | QFile::WriteGroup |
                        QFile::ReadOther | QFile::WriteOther;
    QCOMPARE(QFile::permissions(favouritePath(suffix)) & forAll, forAll);
}

void TestDialogSettings::restoredFavouriteStaysAfterCancel()
{
    writeFile(favouritePath("kelatr"), "changed");
    DialogSettings dialog;
    dialog.show();
    dialog.findChild<QTabWidget *>()->setCurrentIndex(1);
    QTest::mousePress(restoreButton(dialog, "kelatr"), Qt::LeftButton);
    click(dialog, QDialogButtonBox::Cancel);
    QCOMPARE(readFile(favouritePath("kelatr")), pristine("en", "kelatr"));
}

void TestDialogSettings::favouriteIsComparedWithTheSessionsLanguage()
{
    writeFile(favouritePath("kelchk"), pristine("en", "kelchk"));
    useLanguage("de", QLocale("de"));
    DialogSettings dialog;
    dialog.show();
    dialog.findChild<QTabWidget *>()->setCurrentIndex(1);
    QVERIFY(restoreButton(dialog, "kelchk")->isEnabled());
    QTest::mousePress(restoreButton(dialog, "kelchk"), Qt::LeftButton);
    QCOMPARE(readFile(favouritePath("kelchk")), pristine("de", "kelchk"));
}

void TestDialogSettings::afterALanguageChangeNothingCanBeRestoredUntilAFavouriteIsSaved()
{
    const QStringList suffixes{"kelir", "kelatr", "kelvc", "kelchk"};
    for (const QString &suffix : suffixes)
        writeFile(favouritePath(suffix), "changed");
    QActionGroup group(nullptr);
    QAction german(&group);
    german.setData(QLocale("de"));
    BoxWatcher watcher;
    watcher.expect("Changing the language deletes any Report Favourites.", QMessageBox::Ok);
    watcher.expect("The application must be restarted", QMessageBox::Ok);
    QVERIFY(LanguageMenu::change(&german, &group, nullptr));
    useLanguage("de", QLocale("de"));
    const auto enabled = [&suffixes] {
        const DialogSettings dialog;
        QStringList names;
        for (const QString &suffix : suffixes) {
            if (restoreButton(dialog, suffix)->isEnabled())
                names.append(suffix);
        }
        return names;
    };
    QVERIFY(!QFileInfo::exists(favouritePath("kelir")));
    QCOMPARE(enabled(), QStringList());
    for (const QString &suffix : suffixes) {
        createDocumentFile(m_root, "new." + suffix);
        QVERIFY(QFileInfo::exists(favouritePath(suffix)));
    }
    QCOMPARE(enabled(), QStringList());
    writeFile(favouritePath("kelvc"), "changed");
    QCOMPARE(enabled(), QStringList{"kelvc"});
}

KELMAR_TEST_MAIN(TestDialogSettings)
#include "tst_dialogsettings.moc"

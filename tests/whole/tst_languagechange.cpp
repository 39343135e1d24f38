#include "app/core/Identity.h"
#include "app/core/Language.h"
#include "app/document/AbstractDocument.h"
#include "app/shell/MainWindow.h"
#include "tests/support/TestHome.h"
#include "tests/whole/Hands.h"
#include "tests/whole/WholeProgram.h"

#include <QtTest>
#include <QtWidgets>

namespace {

const char warning[] = "Changing the language deletes any Report Favourites.\n";
const char notice[] = "The application must be restarted when the language is changed.";

QAction *languageEntry(const MainWindow &window, const QString &label)
{
    const auto *menu = window.findChild<QMenu *>("menuLanguage");
    for (QAction *action : menu->actions()) {
        if (action->text().endsWith(' ' + label))
            return action;
    }
    QTest::qFail(qPrintable("no such language: " + label), __FILE__, __LINE__);
    return nullptr;
}

QAction *action(const MainWindow &window, const char *name)
{
    return window.findChild<QAction *>(QLatin1String(name));
}

QSettings settings()
{
    return QSettings(Identity::organisationName(), Identity::applicationName());
}

/// Counts the splash screens, language choosers and welcomes of a run.
class Greetings : public QObject
{
public:
    bool eventFilter(QObject *object, QEvent *event) override
    {
        if (event->type() == QEvent::Show) {
            for (const char *name : {"QSplashScreen", "DialogLanguageChooser", "DialogWelcome"}) {
                if (object->inherits(name))
                    shown.append(QLatin1String(name));
            }
        }
        return false;
    }

    QStringList shown;
};

} // namespace

/// A change of language ends the window and brings it back in the same process.
class TestLanguageChange : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void firstStartAsksOnceAndTheNextGoesStraightOn();
    void cancelledChooserGivesAnEnglishSession();
    void windowComesBackInTheOtherLanguageWithoutGreetings();
    void newDocumentsHaveGermanNamesAfterTheChange();
    void refusedCloseKeepsTheWindowAndTheNextCloseBringsItBack();
    void cancelledChangeEndsTheProgramAtTheNextClose();

private:
    void start(
        const WholeProgram::User &user, const WholeProgram::Preparation &prepare = [](BoxWatcher &) {});

    QString m_root;
    Greetings m_greetings;
    int m_passes = 0;
};

void TestLanguageChange::init()
{
    m_root = TestHome::instance()->projectsRoot();
    QDir(m_root).removeRecursively();
    QVERIFY(QDir().mkpath(m_root));
    QDir(TestHome::instance()->dataFolder()).removeRecursively();
    QSettings store(Identity::organisationName(), Identity::applicationName());
    store.clear();
    store.setValue("locale", "en");
    store.setValue("Directories/RootDir", m_root);
    store.setValue("Welcome/show", false);
    m_greetings.shown.clear();
}

/// One start of the program to its end. The main windows are counted.
void TestLanguageChange::start(const WholeProgram::User &user, const WholeProgram::Preparation &prepare)
{
    m_passes = 0;
    const int code = WholeProgram::run(
        {},
        [&](BoxWatcher &watcher) {
            qApp->installEventFilter(&m_greetings);
            prepare(watcher);
        },
        [&](MainWindow &window, BoxWatcher &watcher, int pass) {
            m_passes = pass;
            user(window, watcher, pass);
        });
    QCOMPARE(code, 0);
}

void TestLanguageChange::firstStartAsksOnceAndTheNextGoesStraightOn()
{
    QSettings(Identity::organisationName(), Identity::applicationName()).remove("locale");
    start([](MainWindow &, BoxWatcher &, int) {},
          [](BoxWatcher &watcher) {
              watcher.expectDialog("DialogLanguageChooser", [](QWidget *dialog) {
                  QVERIFY(dialog->windowFlags().testFlag(Qt::WindowStaysOnTopHint));
                  QVERIFY(!dialog->windowIcon().isNull());
                  QVERIFY(!dialog->parentWidget());
                  auto *box = dialog->findChild<QComboBox *>();
                  box->setCurrentIndex(box->findText("German"));
                  emit box->activated(box->currentIndex());
                  QTest::mouseClick(dialog->findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Ok),
                                    Qt::LeftButton);
              });
          });
    QCOMPARE(m_greetings.shown, (QStringList{"QSplashScreen", "DialogLanguageChooser"}));
    QVERIFY(settings().value("locale").toString().startsWith("de"));
    m_greetings.shown.clear();
    start([](MainWindow &window, BoxWatcher &, int) {
        QCOMPARE(window.windowTitle(), QString("Kelmar"));
        QVERIFY(!window.windowIcon().isNull());
        QCOMPARE(reportsFolder(), QString("reports_de"));
    });
    QCOMPARE(m_greetings.shown, QStringList{"QSplashScreen"});
}

void TestLanguageChange::cancelledChooserGivesAnEnglishSession()
{
    QSettings(Identity::organisationName(), Identity::applicationName()).remove("locale");
    start(
        [](MainWindow &window, BoxWatcher &, int) {
            QCOMPARE(reportsFolder(), QString("reports_en"));
            QVERIFY(languageEntry(window, "English")->isChecked());
        },
        [](BoxWatcher &watcher) {
            watcher.expectDialog("DialogLanguageChooser", [](QWidget *dialog) {
                QTest::mouseClick(dialog->findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Cancel),
                                  Qt::LeftButton);
            });
        });
    QCOMPARE(m_passes, 1);
    QCOMPARE(settings().value("locale").toString(), QString("en"));
}

void TestLanguageChange::windowComesBackInTheOtherLanguageWithoutGreetings()
{
    QSettings(Identity::organisationName(), Identity::applicationName()).setValue("Welcome/show", true);
    QStringList words;
    start(
        [&](MainWindow &window, BoxWatcher &watcher, int pass) {
            words.append(window.findChild<QMenu *>("menuFile")->title());
            words.append(QCoreApplication::translate("QPlatformTheme", "Cancel"));
            if (pass > 1) {
                QVERIFY(languageEntry(window, "Deutsch")->isChecked());
                return;
            }
            watcher.expect(warning, QMessageBox::Ok);
            watcher.expect(notice, QMessageBox::Ok);
            Hands::chooseFromMenu(&window, window.findChild<QMenu *>("menuLanguage"),
                                  languageEntry(window, "Deutsch"));
        },
        [](BoxWatcher &watcher) {
            watcher.expectDialog("DialogWelcome", [](QWidget *dialog) { dialog->close(); });
        });
    QCOMPARE(m_passes, 2);
    QCOMPARE(m_greetings.shown, (QStringList{"QSplashScreen", "DialogWelcome"}));
    QCOMPARE(words, (QStringList{"File", "Cancel", "Datei", "Abbrechen"}));
    QCOMPARE(settings().value("locale").toString(), QString("de_DE"));
    QVERIFY(!restartRequested());
}

void TestLanguageChange::newDocumentsHaveGermanNamesAfterTheChange()
{
    start([this](MainWindow &window, BoxWatcher &watcher, int pass) {
        action(window, "actionNewInspectionReport")->trigger();
        if (pass > 1)
            return;
        QVERIFY(QFileInfo::exists(m_root + "/Inspection Report.kelir"));
        watcher.expect(warning, QMessageBox::Ok);
        watcher.expect(notice, QMessageBox::Ok);
        languageEntry(window, "Deutsch")->trigger();
        // The favourite was in the old language.
        QVERIFY(!QFileInfo::exists(TestHome::instance()->dataFolder() + "/default.kelir"));
    });
    QCOMPARE(m_passes, 2);
    QCOMPARE(readFile(m_root + "/Prüfbericht Besichtigung.kelir"),
             readFile(":/res/reports_de/default.kelir"));
    QCOMPARE(readFile(m_root + "/Inspection Report.kelir"), readFile(":/res/reports_en/default.kelir"));
}

void TestLanguageChange::refusedCloseKeepsTheWindowAndTheNextCloseBringsItBack()
{
    const QString path = m_root + "/open.kelatr";
    start([&](MainWindow &window, BoxWatcher &watcher, int pass) {
        if (pass > 1) {
            QCOMPARE(reportsFolder(), QString("reports_de"));
            QVERIFY(window.documents().isEmpty());
            return;
        }
        writeFile(path, readFile(":/res/reports_en/default.kelatr"));
        window.openDocument(path)->setModified(true);
        watcher.expect(warning, QMessageBox::Ok);
        watcher.expect(notice, QMessageBox::Ok);
        watcher.expect("Save changes to open.kelatr?", QMessageBox::Cancel);
        languageEntry(window, "Deutsch")->trigger();
        QVERIFY(window.isVisible());
        QVERIFY(restartRequested());
        QCOMPARE(settings().value("locale").toString(), QString("de_DE"));
        // Still the old session, until the window closes in earnest.
        QCOMPARE(reportsFolder(), QString("reports_en"));
        watcher.expect("Save changes to open.kelatr?", QMessageBox::No);
        QVERIFY(window.close());
    });
    QCOMPARE(m_passes, 2);
    QVERIFY(!restartRequested());
}

void TestLanguageChange::cancelledChangeEndsTheProgramAtTheNextClose()
{
    start([](MainWindow &window, BoxWatcher &watcher, int) {
        watcher.expect(warning, QMessageBox::Cancel);
        languageEntry(window, "Deutsch")->trigger();
        QVERIFY(languageEntry(window, "English")->isChecked());
    });
    QCOMPARE(m_passes, 1);
    QCOMPARE(settings().value("locale").toString(), QString("en"));
}

int main(int argc, char **argv)
{
    qSetGlobalQHashSeed(0);
    TestHome home;
    TestLanguageChange test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_languagechange.moc"

#include "app/core/Identity.h"
#include "app/core/Language.h"
#include "app/document/AbstractDocument.h"
#include "app/shell/MainWindow.h"
#include "diagram/DialogComponentSettings.h"
#include "tests/support/Patience.h"
#include "tests/support/TestHome.h"
#include "tests/whole/WholeProgram.h"

#include <QtTest>
#include <QtWidgets>

namespace {

/// A tester that is set to German separates by semicolons.
const QByteArray resultsFile =
    "PV Tester;4711-0815;V2.10;2\r\n"
    "TestType;Index;DD/MM/YYYY;HH:MM:SS;Rpe (Ohm);Voc (VDC);Isc (ADC);Riso (MOhm);Viso (V);"
    "Irr (W/m2);IVCurve;StatusCode;Checksum\r\n"
    "4;2;9/5/2016;12:44:58;;;;63,0;500;;;0;0849\r\n";

QAction *action(const MainWindow &window, const char *name)
{
    return window.findChild<QAction *>(QLatin1String(name));
}

QString plain(QString text)
{
    return text.remove('&');
}

QStringList plainTexts(const QList<QAction *> &actions)
{
    QStringList texts;
    for (const QAction *one : actions) {
        if (one->isVisible() && !one->isSeparator())
            texts.append(plain(one->text()));
    }
    return texts;
}

QStringList toolTips(const AbstractDocument *document)
{
    QStringList tips;
    for (const QAction *one : document->findChildren<QAction *>())
        tips.append(one->toolTip());
    return tips;
}

} // namespace

/// What the windows of a German session say.
class TestGermanWindows : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void welcomeAndTheToolkitsButtonsAreGerman();
    void menusAreGerman();
    void dialogsAreGerman();
    void searchAndItsResultsAreGerman();
    void reportAndItsQuestionAreGerman();
    void diagramAndItsCaptionsAreGerman();
    void theParserOfDamagedFilesSpeaksGerman();

private:
    using Visit = std::function<void(MainWindow &window, BoxWatcher &watcher)>;

    void start(
        const Visit &visit, const WholeProgram::Preparation &prepare = [](BoxWatcher &) {});

    QString m_root;
};

void TestGermanWindows::init()
{
    m_root = TestHome::instance()->projectsRoot();
    QDir(m_root).removeRecursively();
    QVERIFY(QDir().mkpath(m_root));
    QDir(TestHome::instance()->dataFolder()).removeRecursively();
    QSettings store(Identity::organisationName(), Identity::applicationName());
    store.clear();
    store.setValue("locale", "de_DE");
    store.setValue("Directories/RootDir", m_root);
    store.setValue("Welcome/show", false);
}

/// One German start of the program to its end, with `visit` in its one main window.
void TestGermanWindows::start(const Visit &visit, const WholeProgram::Preparation &prepare)
{
    int windows = 0;
    WholeProgram::run({}, prepare, [&](MainWindow &window, BoxWatcher &watcher, int) {
        ++windows;
        QCOMPARE(reportsFolder(), QString("reports_de"));
        visit(window, watcher);
    });
    QCOMPARE(windows, 1);
}

void TestGermanWindows::welcomeAndTheToolkitsButtonsAreGerman()
{
    QSettings(Identity::organisationName(), Identity::applicationName()).setValue("Welcome/show", true);
    start([](MainWindow &, BoxWatcher &) {},
          [](BoxWatcher &watcher) {
              watcher.expectDialog("DialogWelcome", [](QWidget *dialog) {
                  QCOMPARE(dialog->windowTitle(), QString("Willkommen bei Kelmar!"));
                  const auto *buttons = dialog->findChild<QDialogButtonBox *>();
                  QCOMPARE(plain(buttons->button(QDialogButtonBox::Cancel)->text()), QString("Abbrechen"));
                  dialog->close();
              });
          });
}

void TestGermanWindows::menusAreGerman()
{
    start([this](MainWindow &window, BoxWatcher &) {
        QCOMPARE(plainTexts(window.menuBar()->actions()),
                 (QStringList{"Datei", "Bearbeiten", "Sprache", "Fenster", "Hilfe"}));
        action(window, "actionNewChecklist")->trigger();
        QVERIFY(QFileInfo::exists(m_root + "/Übergabe-Checkliste.kelchk"));
        auto *menu = window.findChild<QMenu *>("menuWindow");
        emit menu->aboutToShow();
        QCOMPARE(plainTexts(menu->actions()),
                 (QStringList{"Schließen", "Nebeneinander", "Überlappend", "Fensteranordnung zurücksetzen",
                              "Nächstes", "Vorheriges"}));
    });
}

void TestGermanWindows::dialogsAreGerman()
{
    const QString csv = TestHome::instance()->path("tester/results.csv");
    writeFile(csv, resultsFile);
    start([&](MainWindow &window, BoxWatcher &watcher) {
        watcher.expectDialog("DialogSettings", [&](QWidget *dialog) {
            QCOMPARE(dialog->windowTitle(), QString("Einstellungen"));
            QCOMPARE(dialog->findChild<QTabWidget *>()->tabText(1), QString("Berichtsfavoriten"));
            dialog->close();
        });
        action(window, "actionSettings")->trigger();
        watcher.expectDialog("DialogAbout", [](QWidget *dialog) {
            QCOMPARE(dialog->windowTitle(), QString("Info zu Kelmar"));
            dialog->close();
        });
        action(window, "actionAbout")->trigger();

        watcher.expectFileDialog(csv);
        action(window, "actionImport")->trigger();
        QCOMPARE(watcher.fileDialogs().first().first(), QString("CSV-Datei importieren"));
        const auto *import = window.findChild<QDialog *>("DialogImportResults");
        QTRY_VERIFY(import->isVisible());
        QCOMPARE(import->windowTitle(), QString("Ergebnisse importieren - results.csv"));
        QCOMPARE(import->findChild<QComboBox *>()->currentText(), QString("Isolation Pos - Erde"));
    });
}

void TestGermanWindows::searchAndItsResultsAreGerman()
{
    start([](MainWindow &window, BoxWatcher &) {
        auto *dock = window.findChild<QDockWidget *>("documentSearch");
        QCOMPARE(dock->windowTitle(), QString("Dokumentsuche"));
        dock->raise();
        QTest::mouseClick(dock->findChild<QPushButton *>("search"), Qt::LeftButton);
        QTRY_VERIFY(window.activeDocument());
        const QAbstractItemModel *results = window.activeDocument()->findChild<QTableView *>()->model();
        QTRY_COMPARE(results->index(0, 0).data().toString(),
                     QString("Die Suche ist beendet. Es gibt keine Ergebnisse."));
        QStringList headings;
        for (int column = 0; column < results->columnCount(); ++column)
            headings.append(results->headerData(column, Qt::Horizontal).toString());
        QCOMPARE(headings, (QStringList{"Name", "Größe", "Zuletzt geändert"}));
    });
}

void TestGermanWindows::reportAndItsQuestionAreGerman()
{
    start([this](MainWindow &window, BoxWatcher &watcher) {
        action(window, "actionNewTestReport")->trigger();
        AbstractDocument *document = window.openDocument(m_root + "/Prüfbericht PV-Generator.kelatr");
        QVERIFY(document);
        QVERIFY(toolTips(document).contains("Als PDF exportieren"));
        QVERIFY(toolTips(document).contains("Daten aus dem Prüfgerät herunterladen"));
        document->setModified(true);
        watcher.expect("Änderungen an Prüfbericht PV-Generator.kelatr speichern?", QMessageBox::No);
        QVERIFY(window.close());
    });
}

void TestGermanWindows::diagramAndItsCaptionsAreGerman()
{
    start([this](MainWindow &window, BoxWatcher &) {
        action(window, "actionNewInstallationDiagram")->trigger();
        const AbstractDocument *document = window.openDocument(m_root + "/Anlagenschema.kelid");
        QVERIFY(document);
        QVERIFY(toolTips(document).contains("DC-Leitung"));
        QCOMPARE(DialogComponentSettings("Wechselrichter 1", &window).windowTitle(), QString("Komponente"));
    });
}

void TestGermanWindows::theParserOfDamagedFilesSpeaksGerman()
{
    const QString path = m_root + "/Kaputt.kelid";
    writeFile(path, "<installation_diagram>");
    start([&](MainWindow &window, BoxWatcher &watcher) {
        watcher.expect("XML-Validierungsfehler in " + path, QMessageBox::Ok);
        delete window.openDocument(path);
        QCOMPARE(watcher.boxes().last().informativeText, QString("unerwartetes Ende der Datei"));
    });
}

int main(int argc, char **argv)
{
    qSetGlobalQHashSeed(0);
    TestHome home;
    TestGermanWindows test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_germanwindows.moc"

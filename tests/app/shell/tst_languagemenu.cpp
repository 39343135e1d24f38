#include "app/core/Language.h"
#include "app/document/AbstractDocument.h"
#include "tests/app/shell/Desk.h"
#include "tests/support/BoxWatcher.h"
#include "tests/support/TestMain.h"

#include <QAction>
#include <QActionGroup>
#include <QMenu>

namespace {

const char warning[] = "Changing the language deletes any Report Favourites.\n";
const char notice[] = "The application must be restarted when the language is changed.";

} // namespace

class TestLanguageMenu : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void cataloguesAreOfferedUnderTheirOwnNames();
    void languageInForceIsCheckedWhateverItsRegion();
    void withoutAStoredLanguageEnglishIsStoredAndChecked();
    void withoutCataloguesTheMenuIsEmpty();

    void changeIsWarnedOfInTheMiddleOfTheScreen();
    void agreedChangeStoresTheLanguageAndClosesTheWindow();
    void agreedChangeDeletesTheFavouritesOfAllKinds();
    void cancelledChangeBringsTheCheckMarkBack();
    void stateOfTheCheckBoxIsKeptWhateverTheAnswer_data();
    void stateOfTheCheckBoxIsKeptWhateverTheAnswer();
    void hiddenWarningKeepsTheLanguageAndMovesTheMark();
    void storedWarningThatIsNotHiddenIsShownAgain();
    void documentThatRefusesKeepsTheWindowWithTheChangeAskedFor();

private:
    static void offer(const QStringList &codes);
    QMenu *menu() const { return m_desk->window->findChild<QMenu *>("menuLanguage"); }
    QAction *entry(const QString &label) const;
    QString checked() const;
    static QString stored() { return QSettings().value("locale").toString(); }
    static QVariant hidden() { return QSettings().value("/HideDeleteDefaultsWarning"); }

    std::unique_ptr<Desk> m_desk;
};

void TestLanguageMenu::initTestCase()
{
    QVERIFY(QDir::setCurrent(TestHome::instance()->path()));
}

void TestLanguageMenu::init()
{
    offer({"de", "en", "sv"});
    Desk::clear();
    m_desk = std::make_unique<Desk>();
}

void TestLanguageMenu::cleanup()
{
    m_desk.reset();
    setRestartRequested(false);
}

void TestLanguageMenu::offer(const QStringList &codes)
{
    QDir("Translations").removeRecursively();
    for (const QString &code : codes)
        writeFile("Translations/kelmar_" + code + ".qm", QByteArray());
    writeFile("Translations/qt_fr.qm", QByteArray());
}

QAction *TestLanguageMenu::entry(const QString &label) const
{
    for (QAction *action : menu()->actions()) {
        if (action->text().endsWith(' ' + label))
            return action;
    }
    return nullptr;
}

QString TestLanguageMenu::checked() const
{
    QStringList labels;
    for (const QAction *action : menu()->actions()) {
        if (action->isChecked())
            labels.append(action->text().section(' ', 1));
    }
    return labels.join(',');
}

void TestLanguageMenu::cataloguesAreOfferedUnderTheirOwnNames()
{
    const QList<QAction *> actions = menu()->actions();
    QCOMPARE(actions.size(), 3);
    QSet<QString> labels;
    for (int i = 0; i < actions.size(); ++i) {
        QCOMPARE(actions.at(i)->text().section(' ', 0, 0), QString("&%1").arg(i + 1));
        QVERIFY(actions.at(i)->isCheckable());
        labels.insert(actions.at(i)->text().section(' ', 1));
    }
    QCOMPARE(labels, (QSet<QString>{"English", "Deutsch", "svenska"}));
    QCOMPARE(entry("Deutsch")->data().toLocale(), QLocale("de"));
    QVERIFY(actions.first()->actionGroup()->isExclusive());
}

void TestLanguageMenu::languageInForceIsCheckedWhateverItsRegion()
{
    QCOMPARE(checked(), QString("English"));
    QSettings().setValue("locale", "de_AT");
    m_desk->restart();
    QCOMPARE(checked(), QString("Deutsch"));
}

void TestLanguageMenu::withoutAStoredLanguageEnglishIsStoredAndChecked()
{
    QSettings().remove("locale");
    m_desk->restart();
    QCOMPARE(stored(), QString("en"));
    QCOMPARE(checked(), QString("English"));
}

void TestLanguageMenu::withoutCataloguesTheMenuIsEmpty()
{
    offer({});
    m_desk->restart();
    QVERIFY(menu()->isEmpty());
}

void TestLanguageMenu::changeIsWarnedOfInTheMiddleOfTheScreen()
{
    BoxWatcher watcher;
    watcher.expect(warning, QMessageBox::Cancel);
    entry("Deutsch")->trigger();
    QCOMPARE(watcher.boxes().size(), 1);
    const BoxWatcher::Box box = watcher.boxes().first();
    QCOMPARE(box.text, QString(warning));
    QCOMPARE(box.checkBoxText, QString("Do not show this message again"));
    QCOMPARE(box.buttons, QMessageBox::Ok | QMessageBox::Cancel);
    QCOMPARE(box.parent, static_cast<QWidget *>(m_desk->window.get()));
}

void TestLanguageMenu::agreedChangeStoresTheLanguageAndClosesTheWindow()
{
    BoxWatcher watcher;
    watcher.expect(warning, QMessageBox::Ok);
    watcher.expect(notice, QMessageBox::Ok);
    entry("Deutsch")->trigger();
    QCOMPARE(stored(), QString("de_DE"));
    QCOMPARE(hidden(), QVariant("false"));
    QVERIFY(restartRequested());
    QVERIFY(!m_desk->window->isVisible());
    QCOMPARE(watcher.boxes().size(), 2);
    const BoxWatcher::Box box = watcher.boxes().last();
    QCOMPARE(box.text, QString(notice));
    QCOMPARE(box.icon, QMessageBox::Critical);
    QCOMPARE(box.buttons, QMessageBox::StandardButtons(QMessageBox::Ok));
    QVERIFY(box.title.isEmpty());
}

void TestLanguageMenu::agreedChangeDeletesTheFavouritesOfAllKinds()
{
    const QString data = TestHome::instance()->dataFolder() + '/';
    for (const char *suffix : {"kelchk", "kelir", "kelatr", "kelvc", "kelcrv", "kelid", "kelreport"})
        writeFile(data + "default." + suffix, "favourite");
    writeFile(data + "modules.db", "catalogue");
    BoxWatcher watcher;
    watcher.expect(warning, QMessageBox::Ok);
    watcher.expect(notice, QMessageBox::Ok);
    entry("svenska")->trigger();
    QCOMPARE(QDir(data).entryList(QDir::Files, QDir::Name), (QStringList{"default.kelreport", "modules.db"}));
}

void TestLanguageMenu::cancelledChangeBringsTheCheckMarkBack()
{
    const QString favourite = TestHome::instance()->dataFolder() + "/default.kelir";
    writeFile(favourite, "favourite");
    QSettings().setValue("locale", "en_US");
    BoxWatcher watcher;
    watcher.expect(warning, QMessageBox::Cancel);
    entry("Deutsch")->trigger();
    QCOMPARE(checked(), QString("English"));
    QCOMPARE(stored(), QString("en_US"));
    QVERIFY(hidden().isValid());
    QVERIFY(QFileInfo::exists(favourite));
    QVERIFY(!restartRequested());
    QVERIFY(m_desk->window->isVisible());
}

void TestLanguageMenu::stateOfTheCheckBoxIsKeptWhateverTheAnswer_data()
{
    QTest::addColumn<bool>("agree");
    QTest::addColumn<bool>("tick");
    for (const bool agree : {false, true}) {
        for (const bool tick : {false, true})
            QTest::addRow("%s, %s", agree ? "OK" : "Cancel", tick ? "ticked" : "not ticked") << agree << tick;
    }
}

void TestLanguageMenu::stateOfTheCheckBoxIsKeptWhateverTheAnswer()
{
    QFETCH(bool, agree);
    QFETCH(bool, tick);
    BoxWatcher watcher;
    watcher.expect(warning, agree ? QMessageBox::Ok : QMessageBox::Cancel, tick);
    if (agree)
        watcher.expect(notice, QMessageBox::Ok);
    entry("Deutsch")->trigger();
    QVERIFY(hidden().isValid());
    QCOMPARE(hidden().toBool(), tick);
    QCOMPARE(restartRequested(), agree);
}

void TestLanguageMenu::hiddenWarningKeepsTheLanguageAndMovesTheMark()
{
    QSettings().setValue("/HideDeleteDefaultsWarning", true);
    const QString favourite = TestHome::instance()->dataFolder() + "/default.kelir";
    writeFile(favourite, "favourite");
    const BoxWatcher watcher;
    entry("Deutsch")->trigger();
    QCOMPARE(checked(), QString("Deutsch"));
    QCOMPARE(stored(), QString("en"));
    QVERIFY(QFileInfo::exists(favourite));
    QVERIFY(!restartRequested());
    QVERIFY(m_desk->window->isVisible());
}

void TestLanguageMenu::storedWarningThatIsNotHiddenIsShownAgain()
{
    QSettings().setValue("/HideDeleteDefaultsWarning", false);
    BoxWatcher watcher;
    watcher.expect(warning, QMessageBox::Cancel);
    entry("Deutsch")->trigger();
    QCOMPARE(watcher.boxes().size(), 1);
}

void TestLanguageMenu::documentThatRefusesKeepsTheWindowWithTheChangeAskedFor()
{
    AbstractDocument *document = m_desk->window->openDocument(Desk::addReport("one.kelatr"));
    document->setModified(true);
    BoxWatcher watcher;
    watcher.expect(warning, QMessageBox::Ok);
    watcher.expect(notice, QMessageBox::Ok);
    watcher.expect("Save changes to one.kelatr?", QMessageBox::Cancel);
    entry("Deutsch")->trigger();
    QVERIFY(m_desk->window->isVisible());
    QVERIFY(restartRequested());
    QCOMPARE(stored(), QString("de_DE"));
    document->setModified(false);
    QVERIFY(m_desk->window->close());
    QVERIFY(restartRequested());
}

KELMAR_TEST_MAIN(TestLanguageMenu)
#include "tst_languagemenu.moc"

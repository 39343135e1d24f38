#include "app/core/Language.h"
#include "app/core/Messages.h"
#include "tests/support/BoxWatcher.h"
#include "tests/support/LocaleSwitch.h"
#include "tests/support/TestMain.h"
#include "tests/translations/Catalogue.h"

#include <QDialogButtonBox>
#include <QProcess>
#include <QPushButton>

namespace {

const QString folder = QStringLiteral(KELMAR_SOURCE_ROOT "/translations");

/// What reads the same in both languages.
const QStringList sameInGerman{
    "&%1 %2", "%1 %2", "%L1 KB", "AutoTest", " KB", "Name", "Kelmar", "FF", " ",
    // symbols, with their units
    "Isc:", "Isc: (A)", "Impp:", "Impp: (A)", "Rs: (Ω)", "K:", "a:", "b:", "delta:", "alpha (A/°C)",
    "beta (V/°C)", "alpha in %/°C", "beta in %/°C", "%/°C ...",
    "<font size=\"3\" face=\"Symbol\">a:</font>\n<font size=\"3\" face=\"MS Shell Dlg 2\"> (A/°C)</font>",
    "<font size=\"3\" face=\"Symbol\">b:</font>\n<font size=\"3\" face=\"MS Shell Dlg 2\"> (V/°C)</font>",
    // names of methods and of views
    "Anderson", "Blässer", "STC", "NOM"};

void expectNone(const QStringList &findings)
{
    QVERIFY2(findings.isEmpty(), qPrintable(findings.join('\n')));
}

/// The descriptions of the entries of every catalogue for which `isWrong`.
template <typename Check> QStringList entriesThat(Check isWrong)
{
    QStringList found;
    for (const QString &name : QDir(folder).entryList({"*.ts"})) {
        const Catalogue catalogue(folder + '/' + name);
        for (const CatalogueEntry &entry : catalogue.entries()) {
            if (isWrong(entry))
                found.append(name + ": " + entry.description());
        }
    }
    return found;
}

/// The same text, whatever its accelerator.
QString plain(QString text)
{
    return text.remove('&');
}

QStringList difference(const QStringList &all, const QStringList &but)
{
    QStringList left = all;
    for (const QString &one : but)
        left.removeOne(one);
    return left;
}

} // namespace

class TestCatalogues : public QObject
{
    Q_OBJECT

private slots:
    void cleanup();

    void bothCataloguesCanBeRead();
    void everyEntryIsFinished();
    void everyTextOfTheSourcesIsInEveryCatalogue();
    void translationsKeepThePlacesForValues();
    void translationsKeepLineEndsBeginningAndEnding();
    void translationsKeepFilePatterns();
    void translationsKeepAccelerators();
    void theEnglishCatalogueHoldsTheSourceTexts();
    void theGermanCatalogueTranslatesEveryText();
    void oneTextIsTranslatedInOneWay();
    void partsOfATextAreFound();
    void vanishedAndUnfinishedEntriesAreSeen();

    void buttonsOfAMessageAreGermanInAGermanSession();
    void buttonsOfADialogAreGermanInAGermanSession();
    void messagesAreGermanInAGermanSession();
    void everyLanguageHasItsOwnCatalogueOfTheProgram();
};

void TestCatalogues::cleanup()
{
    useLanguage("en", QLocale("en"));
}

void TestCatalogues::bothCataloguesCanBeRead()
{
    QCOMPARE(QDir(folder).entryList({"*.ts"}, QDir::Files, QDir::Name),
             (QStringList{"kelmar_de.ts", "kelmar_en.ts"}));
    for (const QString &language : {QStringLiteral("de"), QStringLiteral("en")}) {
        const Catalogue catalogue(folder + "/kelmar_" + language + ".ts");
        QCOMPARE(catalogue.error(), QString());
        QCOMPARE(catalogue.language(), language);
        QVERIFY(catalogue.entries().size() > 100);
    }
}

void TestCatalogues::everyEntryIsFinished()
{
    expectNone(entriesThat([](const CatalogueEntry &entry) {
        const bool blank = entry.source.trimmed().isEmpty();
        return !entry.type.isEmpty() || (!blank && entry.translation.trimmed().isEmpty());
    }));
}

void TestCatalogues::everyTextOfTheSourcesIsInEveryCatalogue()
{
    QTemporaryDir place;
    const QString path = place.filePath("sources_en.ts");
    QProcess lupdate;
    lupdate.setWorkingDirectory(KELMAR_SOURCE_ROOT);
    lupdate.start(KELMAR_LUPDATE, QStringList{"-silent", "-locations", "none", "-I", "."} +
                                      QStringLiteral(KELMAR_TRANSLATED_FOLDERS).split(' ') +
                                      QStringList{"-ts", path});
    QVERIFY(lupdate.waitForFinished(patience));
    QVERIFY2(lupdate.exitCode() == 0, lupdate.readAllStandardError());
    const Catalogue sources(path);
    QCOMPARE(sources.error(), QString());
    for (const char *name : {"kelmar_de.ts", "kelmar_en.ts"}) {
        const QStringList held = Catalogue(folder + '/' + name).keys();
        expectNone(difference(sources.keys(), held).replaceInStrings(QRegularExpression("^"), "missing: "));
        expectNone(difference(held, sources.keys()).replaceInStrings(QRegularExpression("^"), "not used: "));
    }
}

void TestCatalogues::translationsKeepThePlacesForValues()
{
    expectNone(entriesThat([](const CatalogueEntry &entry) {
        return TextParts::placeholders(entry.source) != TextParts::placeholders(entry.translation);
    }));
}

void TestCatalogues::translationsKeepLineEndsBeginningAndEnding()
{
    expectNone(entriesThat([](const CatalogueEntry &entry) {
        return TextParts::lineEnds(entry.source) != TextParts::lineEnds(entry.translation) ||
               TextParts::beginning(entry.source) != TextParts::beginning(entry.translation) ||
               TextParts::ending(entry.source) != TextParts::ending(entry.translation);
    }));
}

void TestCatalogues::translationsKeepFilePatterns()
{
    expectNone(entriesThat([](const CatalogueEntry &entry) {
        return TextParts::filePatterns(entry.source) != TextParts::filePatterns(entry.translation);
    }));
}

void TestCatalogues::translationsKeepAccelerators()
{
    expectNone(entriesThat([](const CatalogueEntry &entry) {
        return TextParts::hasAccelerator(entry.source) != TextParts::hasAccelerator(entry.translation);
    }));
}

void TestCatalogues::theEnglishCatalogueHoldsTheSourceTexts()
{
    const Catalogue catalogue(folder + "/kelmar_en.ts");
    for (const CatalogueEntry &entry : catalogue.entries())
        QCOMPARE(entry.translation, entry.source);
}

void TestCatalogues::theGermanCatalogueTranslatesEveryText()
{
    QStringList same;
    const Catalogue catalogue(folder + "/kelmar_de.ts");
    for (const CatalogueEntry &entry : catalogue.entries()) {
        if (entry.translation == entry.source)
            same.append(entry.source);
    }
    same.removeDuplicates();
    expectNone(difference(same, sameInGerman));
    expectNone(difference(sameInGerman, same));
}

void TestCatalogues::oneTextIsTranslatedInOneWay()
{
    QMap<QString, QString> known;
    QStringList findings;
    const Catalogue catalogue(folder + "/kelmar_de.ts");
    for (const CatalogueEntry &entry : catalogue.entries()) {
        const QString source = plain(entry.source);
        const QString translation = plain(entry.translation);
        if (known.value(source, translation) != translation)
            findings.append(source + ": " + known.value(source) + ", " + translation);
        known.insert(source, translation);
    }
    expectNone(findings);
}

void TestCatalogues::partsOfATextAreFound()
{
    QCOMPARE(TextParts::placeholders("%2 of %1, %L1 and 5 %"), (QStringList{"%1", "%2", "%L1"}));
    QCOMPARE(TextParts::filePatterns("CSV Files (*.csv);;All (*)"), (QStringList{"(*)", "(*.csv)"}));
    QVERIFY(TextParts::hasAccelerator("Ü&berlappend"));
    QVERIFY(TextParts::hasAccelerator("&Öffnen"));
    QVERIFY(TextParts::hasAccelerator("&%1 %2"));
    QVERIFY(!TextParts::hasAccelerator("AutoTest & Curve"));
    QCOMPARE(TextParts::ending("Browse..."), QString("..."));
    QCOMPARE(TextParts::ending("Download ..."), QString(" ..."));
    QCOMPARE(TextParts::ending("Name: "), QString(": "));
    QCOMPARE(TextParts::ending("Gone.\n"), QString(".\n"));
    QCOMPARE(TextParts::ending("Open"), QString());
    QCOMPARE(TextParts::beginning(" KB"), QString(" "));
    QCOMPARE(TextParts::beginning("KB "), QString());
    QCOMPARE(TextParts::lineEnds("a\nb\n"), 2);
}

void TestCatalogues::vanishedAndUnfinishedEntriesAreSeen()
{
    QTemporaryDir place;
    const QString path = place.filePath("some.ts");
    writeFile(path, "<?xml version=\"1.0\"?><!DOCTYPE TS><TS version=\"2.1\" language=\"de\"><context>"
                    "<name>A</name>"
                    "<message><source>a &amp; b</source><comment>c</comment><extracomment>x</extracomment>"
                    "<translation>d</translation></message>"
                    "<message><source>e</source><translation type=\"unfinished\"></translation></message>"
                    "<message><source>f</source><translation type=\"vanished\">g</translation></message>"
                    "</context></TS>");
    const Catalogue catalogue(path);
    QCOMPARE(catalogue.error(), QString());
    QCOMPARE(catalogue.keys(), (QStringList{"A | a & b | c", "A | e | ", "A | f | "}));
    QCOMPARE(catalogue.entries().at(0).type, QString());
    QCOMPARE(catalogue.entries().at(0).translation, QString("d"));
    QCOMPARE(catalogue.entries().at(1).type, QString("unfinished"));
    QCOMPARE(catalogue.entries().at(2).type, QString("vanished"));
    writeFile(path, "<TS><context>");
    QVERIFY(!Catalogue(path).error().isEmpty());
    QVERIFY(!Catalogue(place.filePath("none.ts")).error().isEmpty());
}

void TestCatalogues::buttonsOfAMessageAreGermanInAGermanSession()
{
    const LocaleSwitch locale("de_DE");
    useLanguage("de", QLocale("de_DE"));
    QStringList texts;
    BoxWatcher watcher;
    watcher.expect("?", QMessageBox::No);
    // The watcher clicks when it comes to it; the texts are read before.
    QTimer::singleShot(0, &watcher, [&texts] {
        const auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
        for (const QAbstractButton *button : box->buttons())
            texts.append(plain(button->text()));
    });
    Message question;
    question.text = "?";
    question.buttons = QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel;
    showMessage(question);
    texts.sort();
    QCOMPARE(texts, (QStringList{"Abbrechen", "Ja", "Nein"}));
}

void TestCatalogues::buttonsOfADialogAreGermanInAGermanSession()
{
    const LocaleSwitch locale("de_DE");
    useLanguage("de", QLocale("de_DE"));
    const QDialogButtonBox box(QDialogButtonBox::Save | QDialogButtonBox::Cancel | QDialogButtonBox::Close |
                               QDialogButtonBox::Apply);
    QCOMPARE(plain(box.button(QDialogButtonBox::Save)->text()), QString("Speichern"));
    QCOMPARE(plain(box.button(QDialogButtonBox::Cancel)->text()), QString("Abbrechen"));
    QCOMPARE(plain(box.button(QDialogButtonBox::Close)->text()), QString("Schließen"));
    QCOMPARE(plain(box.button(QDialogButtonBox::Apply)->text()), QString("Anwenden"));
    useLanguage("en", QLocale("en"));
    const QDialogButtonBox english(QDialogButtonBox::Cancel);
    QCOMPARE(plain(english.button(QDialogButtonBox::Cancel)->text()), QString("Cancel"));
}

void TestCatalogues::messagesAreGermanInAGermanSession()
{
    const LocaleSwitch locale("de_DE");
    useLanguage("de", QLocale("de_DE"));
    QCOMPARE(QCoreApplication::translate("Datalogger", "%1 days ago", "time since saved"),
             QString("vor %1 Tagen"));
    QCOMPARE(QCoreApplication::translate("MainWindow", "File"), QString("Datei"));
    // The toolkit's dialogs of files, colours and fonts are in the one file, too.
    QCOMPARE(plain(QCoreApplication::translate("QFileDialog", "&Delete")), QString("Löschen"));
    QCOMPARE(plain(QCoreApplication::translate("QPrintDialog", "Print")), QString("Drucken"));
}

void TestCatalogues::everyLanguageHasItsOwnCatalogueOfTheProgram()
{
    QStringList files = offeredCatalogues();
    files.sort();
    QCOMPARE(files, (QStringList{"kelmar_de.qm", "kelmar_en.qm"}));
    for (const QString &file : qAsConst(files)) {
        QTranslator translator;
        QVERIFY(translator.load(file, QCoreApplication::applicationDirPath() + "/Translations"));
        QVERIFY(!translator.isEmpty());
        QVERIFY(!translator.translate("MainWindow", "File").isEmpty());
    }
}

KELMAR_TEST_MAIN(TestCatalogues)
#include "tst_catalogues.moc"

#include "app/core/Language.h"
#include "tests/support/TestMain.h"

class TestLanguage : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void unmatchedLanguageKeepsEnglishTextsWithGermanNames();
    void absentLanguageBecomesEnglish();
    void germanSessionHasGermanNamesAndTexts();
    void englishSessionHasEnglishNames();
    void otherLanguagesHaveEnglishNames();
    void regionOfTheStoredLocaleIsKept();
    void newLanguageReplacesTheOldTexts();
    void catalogueThatCannotBeLoadedStillMakesTheSession();
    void languageWithoutCatalogueKeepsWhatWasThere();
    void codeOfACatalogueFollowsTheFirstUnderscore();
    void offeredCataloguesLieInTheWorkingDirectory();
    void resourcesAreThoseOfTheSession();
    void languageTakenForTheSessionIsNotStored();
    void restartRequestIsKept();

private:
    static QString translations() { return QCoreApplication::applicationDirPath() + "/Translations"; }
    static void offer(const QString &name)
    {
        QVERIFY(QFile::copy(TEST_CATALOGUES "/" + name, translations() + '/' + name));
    }
    static void choose(const QString &locale) { QSettings().setValue("locale", locale); }
    static QString said(const char *context) { return QCoreApplication::translate(context, "Good day"); }
};

void TestLanguage::init()
{
    TestHome::instance()->reset();
    QDir(translations()).removeRecursively();
    QVERIFY(QDir().mkpath(translations()));
}

void TestLanguage::cleanup()
{
    QDir(translations()).removeRecursively();
}

// The first of all: it needs the values from before any catalogue.
void TestLanguage::unmatchedLanguageKeepsEnglishTextsWithGermanNames()
{
    QCOMPARE(reportsFolder(), QString("reports_de"));
    offer("kelmar_de.qm");
    choose("sv");
    loadTranslations();
    QCOMPARE(said("kelmar"), QString("Good day"));
    QCOMPARE(reportsFolder(), QString("reports_de"));
    QCOMPARE(newDocumentNames().inspectionReport, QString("Prüfbericht Besichtigung.kelir"));
    QCOMPARE(QLocale(), QLocale("en"));
    QCOMPARE(QSettings().value("locale").toString(), QString("sv"));
}

void TestLanguage::absentLanguageBecomesEnglish()
{
    QSettings().remove("locale");
    loadTranslations();
    QCOMPARE(QSettings().value("locale").toString(), QString("en"));
}

void TestLanguage::germanSessionHasGermanNamesAndTexts()
{
    offer("kelmar_de.qm");
    offer("qt_de.qm");
    choose("de");
    loadTranslations();
    QCOMPARE(said("kelmar"), QString("Guten Tag"));
    QCOMPARE(said("qt"), QString("Guten Tag"));
    QCOMPARE(reportsFolder(), QString("reports_de"));
    QCOMPARE(QLocale(), QLocale("de"));
    QCOMPARE(newDocumentNames().inspectionReport, QString("Prüfbericht Besichtigung.kelir"));
    QCOMPARE(newDocumentNames().testReport, QString("Prüfbericht PV-Generator.kelatr"));
    QCOMPARE(newDocumentNames().verificationCertificate, QString("Prüfbescheinigung.kelvc"));
    QCOMPARE(newDocumentNames().installationDiagram, QString("Anlagenschema.kelid"));
    QCOMPARE(newDocumentNames().checklist, QString("Übergabe-Checkliste.kelchk"));
    QCOMPARE(newDocumentNames().curveData, QString("Kennliniendaten.kelcrv"));
}

void TestLanguage::englishSessionHasEnglishNames()
{
    writeFile(translations() + "/kelmar_en.qm", "");
    choose("en");
    loadTranslations();
    QCOMPARE(reportsFolder(), QString("reports_en"));
    QCOMPARE(newDocumentNames().inspectionReport, QString("Inspection Report.kelir"));
    QCOMPARE(newDocumentNames().testReport, QString("Array Test Report.kelatr"));
    QCOMPARE(newDocumentNames().verificationCertificate, QString("Verification Certificate.kelvc"));
    QCOMPARE(newDocumentNames().installationDiagram, QString("Installation Diagram.kelid"));
    QCOMPARE(newDocumentNames().checklist, QString("Checklist.kelchk"));
    QCOMPARE(newDocumentNames().curveData, QString("Curve Data.kelcrv"));
}

void TestLanguage::otherLanguagesHaveEnglishNames()
{
    writeFile(translations() + "/kelmar_fr.qm", "");
    choose("fr");
    loadTranslations();
    QCOMPARE(reportsFolder(), QString("reports_fr"));
    QCOMPARE(newDocumentNames().checklist, QString("Checklist.kelchk"));
    QCOMPARE(QLocale().language(), QLocale::French);
}

void TestLanguage::regionOfTheStoredLocaleIsKept()
{
    offer("kelmar_de.qm");
    choose("de_CH");
    loadTranslations();
    QCOMPARE(QLocale().name(), QString("de_CH"));
    QCOMPARE(said("kelmar"), QString("Guten Tag"));
}

void TestLanguage::newLanguageReplacesTheOldTexts()
{
    offer("kelmar_de.qm");
    offer("qt_de.qm");
    writeFile(translations() + "/kelmar_en.qm", "");
    for (int round = 0; round < 3; ++round) {
        choose("de");
        loadTranslations();
        QCOMPARE(said("kelmar"), QString("Guten Tag"));
        choose("en");
        loadTranslations();
        QCOMPARE(said("kelmar"), QString("Good day"));
        QCOMPARE(said("qt"), QString("Good day"));
    }
}

void TestLanguage::catalogueThatCannotBeLoadedStillMakesTheSession()
{
    writeFile(translations() + "/kelmar_de.qm", "no catalogue");
    choose("de");
    loadTranslations();
    QCOMPARE(said("kelmar"), QString("Good day"));
    QCOMPARE(reportsFolder(), QString("reports_de"));
    QCOMPARE(QLocale(), QLocale("de"));
}

void TestLanguage::languageWithoutCatalogueKeepsWhatWasThere()
{
    writeFile(translations() + "/kelmar_en.qm", "");
    choose("en");
    loadTranslations();
    QCOMPARE(reportsFolder(), QString("reports_en"));
    choose("de");
    loadTranslations();
    QCOMPARE(reportsFolder(), QString("reports_en"));
    QCOMPARE(QLocale(), QLocale("en"));
}

void TestLanguage::codeOfACatalogueFollowsTheFirstUnderscore()
{
    QCOMPARE(localeOfCatalogue("kelmar_de.qm"), QLocale("de"));
    QCOMPARE(localeOfCatalogue("kelmar_pt_BR.qm"), QLocale("pt_BR"));
}

void TestLanguage::offeredCataloguesLieInTheWorkingDirectory()
{
    offer("kelmar_de.qm");
    offer("qt_de.qm");
    const QString before = QDir::currentPath();
    QDir::setCurrent(TestHome::instance()->path());
    QCOMPARE(offeredCatalogues(), QStringList());
    QDir::setCurrent(QCoreApplication::applicationDirPath());
    QCOMPARE(offeredCatalogues(), QStringList("kelmar_de.qm"));
    QDir::setCurrent(before);
}

void TestLanguage::resourcesAreThoseOfTheSession()
{
    QCOMPARE(reportsResource("default.kelir"), ":res/" + reportsFolder() + "/default.kelir");
}

void TestLanguage::languageTakenForTheSessionIsNotStored()
{
    offer("kelmar_de.qm");
    choose("en");
    useLanguage("de", QLocale("de_AT"));
    QCOMPARE(said("kelmar"), QString("Guten Tag"));
    QCOMPARE(reportsFolder(), QString("reports_de"));
    QCOMPARE(newDocumentNames().checklist, QString("Übergabe-Checkliste.kelchk"));
    QCOMPARE(QLocale().name(), QString("de_AT"));
    QCOMPARE(QSettings().value("locale").toString(), QString("en"));
    useLanguage("en", QLocale("en"));
    QCOMPARE(said("kelmar"), QString("Good day"));
}

void TestLanguage::restartRequestIsKept()
{
    QVERIFY(!restartRequested());
    setRestartRequested(true);
    QVERIFY(restartRequested());
    setRestartRequested(false);
    QVERIFY(!restartRequested());
}

KELMAR_TEST_MAIN(TestLanguage)
#include "tst_language.moc"

#include "app/core/DocumentType.h"
#include "app/core/Folders.h"
#include "tests/support/TestMain.h"

Q_DECLARE_METATYPE(DocumentType)

namespace {

QImage picture(const QIcon &icon)
{
    return icon.pixmap(32, 32).toImage();
}

QImage picture(const char *name)
{
    return picture(QIcon(QStringLiteral(":res/fileTypes/%1.png").arg(QLatin1String(name))));
}

} // namespace

class TestDocumentType : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void suffixTellsTheType_data();
    void suffixTellsTheType();
    void valuesOfTheTypesAreStable();
    void reportsAreTheFormsBuiltFromTemplates();
    void folderIconTellsTheHandoverPack();
    void linkedChecklistMakesNoHandoverPack();
    void searchResultsHaveTheirOwnIconWhateverTheFolder();
    void iconOfAFileTellsItsType_data();
    void iconOfAFileTellsItsType();
    void iconOfAKindIsReadOnceForAllItsFiles();
    void unknownFileHasNoIcon();
    void freePathStaysAsItIs();
    void takenPathCountsFromTwo();
    void takenFolderKeepsTheDotOfThePattern();
    void percentSignsInNamesStay();
    void dotInAFolderNameIsNoSuffix();
    void favouriteLiesInTheDataFolder();
    void firstFavouriteIsAWritableCopyOfThePristineDocument();
    void existingFavouriteIsNotReplaced();
    void missingPristineDocumentLeavesNoFavourite();

private:
    QString inRoot(const QString &relative) const
    {
        return TestHome::instance()->projectsRoot() + '/' + relative;
    }
};

void TestDocumentType::init()
{
    TestHome::instance()->reset();
}

void TestDocumentType::suffixTellsTheType_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<DocumentType>("type");
    const QVector<QPair<const char *, DocumentType>> rows{
        {"a.kelir", DocumentType::InspectionReport},
        {"report.KELIR", DocumentType::InspectionReport},
        {"a.kelatr", DocumentType::ArrayTestReport},
        {"a.kelvc", DocumentType::VerificationCertificate},
        {"a.kelreport", DocumentType::Report},
        {"a.kelid", DocumentType::InstallationDiagram},
        {"a.kelchk", DocumentType::Checklist},
        {"a.png", DocumentType::Image},
        {"a.jpg", DocumentType::Image},
        {"a.JPeg", DocumentType::Image},
        {"a.tif", DocumentType::Image},
        {"a.tiff", DocumentType::Image},
        {"a.bmp", DocumentType::Image},
        {"a.pdf", DocumentType::Pdf},
        {"a.doc", DocumentType::Word},
        {"a.xls", DocumentType::Spreadsheet},
        {"a.csv", DocumentType::Spreadsheet},
        {"a.html", DocumentType::Web},
        {"a.htm", DocumentType::Web},
        {"a.URL", DocumentType::Web},
        {"a.url", DocumentType::Web},
        {"a.kelcrv", DocumentType::CurveData},
        {"a.docx", DocumentType::Unknown},
        {"a.kelir.bak", DocumentType::Unknown},
        {"/x/a.kelir/readme", DocumentType::Unknown},
        {"", DocumentType::Unknown},
        {"a.", DocumentType::Unknown},
        {"kelir", DocumentType::InspectionReport}, // without a dot the path is its own suffix
        {"/x/kelir", DocumentType::Unknown},
    };
    for (const auto &row : rows)
        QTest::newRow(row.first) << QString(row.first) << row.second;
}

void TestDocumentType::suffixTellsTheType()
{
    QFETCH(QString, path);
    QTEST(documentType(path), "type");
}

void TestDocumentType::valuesOfTheTypesAreStable()
{
    QCOMPARE(int(DocumentType::Unknown), 0);
    QCOMPARE(int(DocumentType::InspectionReport), 1);
    QCOMPARE(int(DocumentType::ArrayTestReport), 2);
    QCOMPARE(int(DocumentType::VerificationCertificate), 3);
    QCOMPARE(int(DocumentType::Report), 4);
    QCOMPARE(int(DocumentType::InstallationDiagram), 5);
    QCOMPARE(int(DocumentType::Checklist), 6);
    QCOMPARE(int(DocumentType::Image), 7);
    QCOMPARE(int(DocumentType::Pdf), 8);
    QCOMPARE(int(DocumentType::Word), 9);
    QCOMPARE(int(DocumentType::Spreadsheet), 10);
    QCOMPARE(int(DocumentType::Web), 12);
    QCOMPARE(int(DocumentType::CurveData), 13);
}

void TestDocumentType::reportsAreTheFormsBuiltFromTemplates()
{
    const QVector<int> reports{1, 2, 3, 4, 6};
    for (int value = 0; value <= 13; ++value)
        QCOMPARE(isReport(DocumentType(value)), reports.contains(value));
}

void TestDocumentType::folderIconTellsTheHandoverPack()
{
    QVERIFY(!picture("folder").isNull());
    QVERIFY(picture("folder") != picture("chp_folder"));
    writeFile(inRoot("Pack/handover.kelchk"), "x");
    QVERIFY(QDir().mkpath(inRoot("Plain/handover.kelchk")));
    QCOMPARE(picture(documentIcon(inRoot("Pack"))), picture("chp_folder"));
    QCOMPARE(picture(documentIcon(inRoot("Plain"))), picture("folder"));
}

void TestDocumentType::linkedChecklistMakesNoHandoverPack()
{
    writeFile(inRoot("Pack/handover.kelchk"), "x");
    QVERIFY(QDir().mkpath(inRoot("Links")));
    QVERIFY(QFile::link(inRoot("Pack/handover.kelchk"), inRoot("Links/handover.kelchk")));
    QCOMPARE(picture(documentIcon(inRoot("Links"))), picture("folder"));
}

void TestDocumentType::searchResultsHaveTheirOwnIconWhateverTheFolder()
{
    QCOMPARE(picture(documentIcon("/nowhere/Search Results")), picture("search"));
    QCOMPARE(picture(documentIcon("My Search Results")), picture("search"));
    QVERIFY(documentIcon("/nowhere/search results").isNull());
    QVERIFY(QDir().mkpath(inRoot("Search Results")));
    QCOMPARE(picture(documentIcon(inRoot("Search Results"))), picture("folder"));
}

void TestDocumentType::iconOfAFileTellsItsType_data()
{
    QTest::addColumn<QString>("suffix");
    QTest::addColumn<QString>("icon");
    const QVector<QPair<const char *, const char *>> rows{
        {"kelir", "varnhold_inspection"},
        {"kelatr", "varnhold_report"},
        {"kelvc", "varnhold_verification_certificate"},
        {"kelreport", "varnhold_report"},
        {"kelid", "varnhold_installation_diagram"},
        {"kelchk", "varnhold_checklist"},
        {"KELCRV", "varnhold_chart"},
        {"tiff", "image"},
        {"pdf", "pdf"},
        {"doc", "word"},
        {"csv", "excel"},
        {"URL", "html"},
    };
    for (const auto &row : rows)
        QTest::newRow(row.first) << QString(row.first) << QString(row.second);
}

void TestDocumentType::iconOfAFileTellsItsType()
{
    QFETCH(QString, suffix);
    QFETCH(QString, icon);
    const QImage expected = picture(qPrintable(icon));
    QVERIFY(!expected.isNull());
    QCOMPARE(picture(documentIcon("/nowhere/a." + suffix)), expected);
}

void TestDocumentType::iconOfAKindIsReadOnceForAllItsFiles()
{
    QCOMPARE(documentIcon("/nowhere/a.pdf").cacheKey(), documentIcon("/nowhere/b.pdf").cacheKey());
    QVERIFY(documentIcon("/nowhere/a.pdf").cacheKey() != documentIcon("/nowhere/a.doc").cacheKey());
}

void TestDocumentType::unknownFileHasNoIcon()
{
    QVERIFY(documentIcon("/nowhere/a.xyz").isNull());
}

void TestDocumentType::freePathStaysAsItIs()
{
    QString path = inRoot("free.kelir");
    uniqueFilePath(path);
    QCOMPARE(path, inRoot("free.kelir"));
}

void TestDocumentType::takenPathCountsFromTwo()
{
    QString path = inRoot("site.v1.kelir");
    for (const char *expected : {"site.v1.kelir", "site.v1 (2).kelir", "site.v1 (3).kelir"}) {
        path = inRoot("site.v1.kelir");
        uniqueFilePath(path);
        QCOMPARE(path, inRoot(expected));
        writeFile(path, "x");
    }
}

void TestDocumentType::takenFolderKeepsTheDotOfThePattern()
{
    QVERIFY(QDir().mkpath(inRoot("New Folder")));
    QString path = inRoot("New Folder");
    uniqueFilePath(path);
    QCOMPARE(path, inRoot("New Folder (2)."));
    QVERIFY(QDir().mkpath(path));
    path = inRoot("New Folder");
    uniqueFilePath(path);
    QCOMPARE(path, inRoot("New Folder (3)."));
}

void TestDocumentType::percentSignsInNamesStay()
{
    QString path = inRoot("100 %1 %2.kel%3");
    writeFile(path, "x");
    uniqueFilePath(path);
    QCOMPARE(path, inRoot("100 %1 %2 (2).kel%3"));
}

void TestDocumentType::dotInAFolderNameIsNoSuffix()
{
    writeFile(inRoot("v1.0/readme"), "x");
    QString path = inRoot("v1.0/readme");
    uniqueFilePath(path);
    QCOMPARE(path, inRoot("v1.0/readme (2)."));
}

void TestDocumentType::favouriteLiesInTheDataFolder()
{
    QCOMPARE(favouritePath("kelir"), TestHome::instance()->dataFolder() + "/default.kelir");
    QCOMPARE(pristinePath("kelir"), QString(":res/reports_de/default.kelir"));
}

void TestDocumentType::firstFavouriteIsAWritableCopyOfThePristineDocument()
{
    makeFavourite("kelir");
    QCOMPARE(readFile(favouritePath("kelir")), QByteArray("pristine inspection report\n"));
    const QFile::Permissions all = QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup |
                                   QFile::WriteGroup | QFile::ReadOther | QFile::WriteOther;
    QCOMPARE(QFile::permissions(favouritePath("kelir")) & all, all);
}

void TestDocumentType::existingFavouriteIsNotReplaced()
{
    writeFile(favouritePath("kelir"), "mine");
    makeFavourite("kelir");
    QCOMPARE(readFile(favouritePath("kelir")), QByteArray("mine"));
}

void TestDocumentType::missingPristineDocumentLeavesNoFavourite()
{
    makeFavourite("kelxyz");
    QVERIFY(!QFileInfo::exists(favouritePath("kelxyz")));
}

KELMAR_TEST_MAIN(TestDocumentType)
#include "tst_documenttype.moc"

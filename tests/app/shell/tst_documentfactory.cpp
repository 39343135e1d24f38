#include "app/core/Folders.h"
#include "app/core/Language.h"
#include "app/core/Shell.h"
#include "app/shell/DocumentFactory.h"
#include "browser/SearchResultsDocument.h"
#include "curve/data/CurveTree.h"
#include "curve/ui/CurveDocument.h"
#include "diagram/DiagramGraphicsScene.h"
#include "diagram/InstallationDiagramDocument.h"
#include "report/GraphicalReportDocument.h"
#include "res/Resources.h"
#include "tests/report/ReportForm.h"
#include "tests/report/ReportSample.h"
#include "tests/support/BoxWatcher.h"
#include "tests/support/TestMain.h"

#include <QDesktopServices>

#include <new>

namespace {

const char oldFavouriteText[] =
    "You are creating an Array Test Report from a favourite that was created in an older version of Kelmar. "
    "If you use this version then you will not be able to import data into it.";

/// A window that is out of memory when a document asks for it, and has some again when a box does.
class ExhaustedShell : public Shell
{
public:
    QWidget *window() override
    {
        if (!m_isExhausted)
            return &m_window;
        m_isExhausted = false;
        throw std::bad_alloc();
    }
    void import() override {}
    void download() override {}

private:
    QWidget m_window;
    bool m_isExhausted = true;
};

} // namespace

/// Notes whether the wait cursor is still there when a box comes up.
class CursorAtBoxes : public QObject
{
    Q_OBJECT

public:
    CursorAtBoxes() { qApp->installEventFilter(this); }
    bool eventFilter(QObject *object, QEvent *event) override
    {
        if (event->type() == QEvent::Show && qobject_cast<QMessageBox *>(object))
            waiting.append(QGuiApplication::overrideCursor() != nullptr);
        return false;
    }

    QVector<bool> waiting;
};

class TestDocumentFactory : public QObject
{
    Q_OBJECT

public slots:
    void openByDesktop(const QUrl &url)
    {
        m_opened.append(url.toLocalFile());
        m_cursors.append(QGuiApplication::overrideCursor() ? QGuiApplication::overrideCursor()->shape()
                                                           : Qt::ArrowCursor);
    }

private slots:
    void initTestCase() { initResources(); }
    void init();
    void cleanup();

    void reportSuffixesOpenAsReports_data();
    void reportSuffixesOpenAsReports();
    void damagedReportIsNotValid();
    void diagramSuffixOpensAsADiagram_data();
    void diagramSuffixOpensAsADiagram();
    void newDiagramIsEmptyInEveryLanguage_data();
    void newDiagramIsEmptyInEveryLanguage();
    void curveSuffixOpensAsACurveDocument_data();
    void curveSuffixOpensAsACurveDocument();
    void newCurveFileIsEmptyInEveryLanguage_data() { newDiagramIsEmptyInEveryLanguage_data(); }
    void newCurveFileIsEmptyInEveryLanguage();
    void curveFileThatCannotBeOpenedIsNotValid();
    void curveFileThatCannotBeReadIsNotCreated_data();
    void curveFileThatCannotBeReadIsNotCreated();
    void otherFilesGoToTheDesktop_data();
    void otherFilesGoToTheDesktop();
    void folderGoesToTheDesktop();
    void fileNamedAsTheSearchResultsOpensThemWhateverItHolds_data();
    void fileNamedAsTheSearchResultsOpensThemWhateverItHolds();
    void fileThatTheDesktopRefusesIsTold();
    void documentThatCannotBeMadeIsTold_data();
    void documentThatCannotBeMadeIsTold();

    void firstUseOfATypeMakesItsFavourite();
    void newFileIsACopyOfTheFavourite();
    void secondFileOfTheSameNameCountsFromTwo();
    void germanSessionTakesTheGermanForm();
    void missingPristineDocumentLeavesNoFile();
    void newReportOpensAndCanBeWritten();

    void currentFavouriteIsNotAskedAbout();
    void favouriteOfAnOlderRevisionIsReplacedAfterYes();
    void favouriteOfAnOlderRevisionIsUsedAfterNo();
    void favouriteOfAnotherLanguageCountsAsOld();
    void favouriteWithoutATemplateCountsAsOld();
    void favouriteThatCannotBeReadCountsAsCurrent_data();
    void favouriteThatCannotBeReadCountsAsCurrent();
    void ageIsAskedOfLowerCaseTestReportsOnly_data();
    void ageIsAskedOfLowerCaseTestReportsOnly();

private:
    static QString favourite(const QString &suffix)
    {
        return TestHome::instance()->dataFolder() + "/default." + suffix;
    }
    static QByteArray pristine(const QString &language, const QString &suffix)
    {
        return readFile(":/res/reports_" + language + "/default." + suffix);
    }
    /// A favourite of the array test report that names this template.
    static QByteArray favouriteFrom(const QByteArray &resPak)
    {
        return ReportSample::pack("<report resPak=\"" + resPak + "\"/>");
    }
    static QString desktopScheme() { return QStringLiteral("file"); }

    QStringList m_opened;
    QVector<Qt::CursorShape> m_cursors;
    QString m_root;
};

void TestDocumentFactory::init()
{
    TestHome::instance()->reset();
    useLanguage("en", QLocale("en"));
    Folders::instance(true);
    m_root = TestHome::instance()->projectsRoot();
    m_opened.clear();
    m_cursors.clear();
    QDesktopServices::setUrlHandler(desktopScheme(), this, "openByDesktop");
}

void TestDocumentFactory::cleanup()
{
    QDesktopServices::unsetUrlHandler(desktopScheme());
    QCOMPARE(QGuiApplication::overrideCursor(), nullptr);
}

void TestDocumentFactory::reportSuffixesOpenAsReports_data()
{
    QTest::addColumn<QString>("name");
    for (const char *name : {"a.kelir", "a.kelatr", "a.kelvc", "a.kelchk", "a.kelreport", "report.KELIR"})
        QTest::newRow(name) << name;
}

void TestDocumentFactory::reportSuffixesOpenAsReports()
{
    QFETCH(QString, name);
    const ReportForm form;
    const QString path = m_root + '/' + name;
    writeFile(path, ReportForm::document(QByteArray()));
    const std::unique_ptr<AbstractDocument> document(createDocument(path, nullptr));
    QVERIFY(qobject_cast<GraphicalReportDocument *>(document.get()));
    QVERIFY(document->isValid());
    QCOMPARE(document->filePath(), path);
    QVERIFY(m_opened.isEmpty());
}

void TestDocumentFactory::damagedReportIsNotValid()
{
    BoxWatcher watcher;
    watcher.expect(QString(), QMessageBox::Ok);
    const QString path = m_root + "/damaged.kelir";
    writeFile(path, "no report");
    const std::unique_ptr<AbstractDocument> document(createDocument(path, nullptr));
    QVERIFY(document);
    QVERIFY(!document->isValid());
}

void TestDocumentFactory::diagramSuffixOpensAsADiagram_data()
{
    QTest::addColumn<QString>("name");
    for (const char *name : {"a.kelid", "roof.KELID"})
        QTest::newRow(name) << name;
}

void TestDocumentFactory::diagramSuffixOpensAsADiagram()
{
    QFETCH(QString, name);
    const QString path = m_root + '/' + name;
    writeFile(path, "<installation_diagram/>");
    const std::unique_ptr<AbstractDocument> document(createDocument(path, nullptr));
    QVERIFY(qobject_cast<InstallationDiagramDocument *>(document.get()));
    QVERIFY(document->isValid());
    QVERIFY(m_opened.isEmpty());
}

void TestDocumentFactory::newDiagramIsEmptyInEveryLanguage_data()
{
    QTest::addColumn<QString>("language");
    QTest::newRow("English") << "en";
    QTest::newRow("German") << "de";
}

void TestDocumentFactory::newDiagramIsEmptyInEveryLanguage()
{
    QFETCH(QString, language);
    useLanguage(language, QLocale(language));
    const QString path = createDocumentFile(m_root, newDocumentNames().installationDiagram);
    QCOMPARE(readFile(path), pristine(language, "kelid"));
    InstallationDiagramDocument document(path);
    QVERIFY(document.isValid());
    QVERIFY(document.scene()->items().isEmpty());
    document.save();
    QCOMPARE(readFile(path), pristine(language, "kelid"));
}

void TestDocumentFactory::curveSuffixOpensAsACurveDocument_data()
{
    QTest::addColumn<QString>("name");
    for (const char *name : {"a.kelcrv", "roof.KELCRV"})
        QTest::newRow(name) << name;
}

void TestDocumentFactory::curveSuffixOpensAsACurveDocument()
{
    QFETCH(QString, name);
    const QString path = m_root + '/' + name;
    writeFile(path, pristine("en", "kelcrv"));
    const std::unique_ptr<AbstractDocument> document(createDocument(path, nullptr));
    QVERIFY(qobject_cast<IVCurve::CurveDocument *>(document.get()));
    QVERIFY(document->isValid());
    QVERIFY(m_opened.isEmpty());
}

void TestDocumentFactory::newCurveFileIsEmptyInEveryLanguage()
{
    QFETCH(QString, language);
    useLanguage(language, QLocale(language));
    const QString path = createDocumentFile(m_root, newDocumentNames().curveData);
    QCOMPARE(readFile(path), pristine(language, "kelcrv"));
    const IVCurve::CurveDocument document(path);
    QVERIFY(document.isValid());
    QCOMPARE(document.findChild<IVCurve::CurveTree *>()->model()->rowCount(), 0);
}

void TestDocumentFactory::curveFileThatCannotBeOpenedIsNotValid()
{
    const QString path = m_root + "/folder.kelcrv";
    QDir().mkpath(path);
    BoxWatcher watcher;
    watcher.expect("unable to open database file", QMessageBox::Ok);
    const std::unique_ptr<AbstractDocument> document(createDocument(path, nullptr));
    QVERIFY(document);
    QVERIFY(!document->isValid());
    QCOMPARE(watcher.boxes().size(), 1);
}

void TestDocumentFactory::curveFileThatCannotBeReadIsNotCreated_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("told");
    QTest::newRow("no database") << QByteArray(4000, 'x') << "not a database";
    QTest::newRow("nothing") << QByteArray() << "no such table";
    QTest::newRow("cut in half") << pristine("en", "kelcrv").left(1500) << "";
}

void TestDocumentFactory::curveFileThatCannotBeReadIsNotCreated()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, told);
    const QString path = m_root + "/damaged.kelcrv";
    writeFile(path, bytes);
    const CursorAtBoxes cursors;
    BoxWatcher watcher;
    watcher.expect(told, QMessageBox::Ok);
    watcher.expect("Failed to create document", QMessageBox::Ok);
    QCOMPARE(createDocument(path, nullptr), nullptr);
    QCOMPARE(watcher.boxes().last().icon, QMessageBox::Critical);
    QVERIFY(!cursors.waiting.last());
}

void TestDocumentFactory::otherFilesGoToTheDesktop_data()
{
    QTest::addColumn<QString>("name");
    for (const char *name : {"plan.pdf", "results.csv", "photo.png", "letter.doc", "page.html", "no suffix"})
        QTest::newRow(name) << name;
}

void TestDocumentFactory::otherFilesGoToTheDesktop()
{
    QFETCH(QString, name);
    const QString path = m_root + '/' + name;
    writeFile(path, "whatever");
    QCOMPARE(createDocument(path, nullptr), nullptr);
    QCOMPARE(m_opened, QStringList{path});
    QCOMPARE(m_cursors, QVector<Qt::CursorShape>{Qt::WaitCursor});
}

void TestDocumentFactory::folderGoesToTheDesktop()
{
    QVERIFY(QDir().mkpath(m_root + "/Job 12"));
    QCOMPARE(createDocument(m_root + "/Job 12", nullptr), nullptr);
    QCOMPARE(m_opened, QStringList{m_root + "/Job 12"});
}

void TestDocumentFactory::fileNamedAsTheSearchResultsOpensThemWhateverItHolds_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("opens");
    QTest::newRow("no file") << "Search Results" << true;
    QTest::newRow("in a folder") << "Job 1/Search Results" << true;
    QTest::newRow("more behind") << "Search Results 2" << false;
    QTest::newRow("more before") << "My Search Results" << false;
    QTest::newRow("another case") << "search results" << false;
}

void TestDocumentFactory::fileNamedAsTheSearchResultsOpensThemWhateverItHolds()
{
    QFETCH(QString, name);
    QFETCH(bool, opens);
    const QString path = m_root + '/' + name;
    if (name.contains('/'))
        writeFile(path, "something else altogether");
    const std::unique_ptr<AbstractDocument> document(createDocument(path, nullptr));
    QCOMPARE(qobject_cast<SearchResultsDocument *>(document.get()) != nullptr, opens);
    QVERIFY(!opens || document->isValid());
    QCOMPARE(m_opened.isEmpty(), opens);
}

void TestDocumentFactory::fileThatTheDesktopRefusesIsTold()
{
    // A handler that is not there refuses, as a desktop without a program for the file does.
    QDesktopServices::setUrlHandler(desktopScheme(), this, "noSuchSlot");
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression("noSuchSlot"));
    const CursorAtBoxes cursor;
    BoxWatcher watcher;
    const QString path = m_root + "/plan.pdf";
    watcher.expect("There was an problem trying to open " + path, QMessageBox::Ok);
    QCOMPARE(createDocument(path, nullptr), nullptr);
    QCOMPARE(watcher.boxes().size(), 1);
    QCOMPARE(watcher.boxes().first().text, "There was an problem trying to open " + path);
    QCOMPARE(watcher.boxes().first().icon, QMessageBox::Warning);
    QCOMPARE(watcher.boxes().first().informativeText,
             QString("Please make sure a program is associated with this file type."));
    QCOMPARE(cursor.waiting, QVector<bool>{false});
}

void TestDocumentFactory::documentThatCannotBeMadeIsTold_data()
{
    QTest::addColumn<QString>("suffix");
    for (const char *suffix : {"kelir", "kelatr", "kelvc", "kelchk"})
        QTest::newRow(suffix) << QString::fromLatin1(suffix);
}

void TestDocumentFactory::documentThatCannotBeMadeIsTold()
{
    QFETCH(QString, suffix);
    const QString path = m_root + "/site." + suffix;
    writeFile(path, pristine("en", suffix));
    ExhaustedShell shell;
    CursorAtBoxes cursor;
    BoxWatcher watcher;
    watcher.expect("Failed to create document", QMessageBox::Ok);
    QVERIFY(!createDocument(path, nullptr));
    QCOMPARE(watcher.boxes().size(), 1);
    QCOMPARE(watcher.boxes().first().text, QString("Failed to create document"));
    QCOMPARE(watcher.boxes().first().icon, QMessageBox::Critical);
    QCOMPARE(watcher.boxes().first().parent, shell.window());
    QCOMPARE(cursor.waiting, QVector<bool>{false});
    QVERIFY(!QGuiApplication::overrideCursor());
    // The next one succeeds.
    const std::unique_ptr<AbstractDocument> document(createDocument(path, nullptr));
    QVERIFY(document && document->isValid());
}

void TestDocumentFactory::firstUseOfATypeMakesItsFavourite()
{
    QVERIFY(!QFileInfo::exists(favourite("kelatr")));
    createDocumentFile(m_root, "Array Test Report.kelatr");
    QCOMPARE(readFile(favourite("kelatr")), pristine("en", "kelatr"));
    const auto forAll = QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup | QFile::WriteGroup |
                        QFile::ReadOther | QFile::WriteOther;
    QCOMPARE(QFile::permissions(favourite("kelatr")) & forAll, forAll);
}

void TestDocumentFactory::newFileIsACopyOfTheFavourite()
{
    writeFile(favourite("kelchk"), "the user's own list");
    const QString path = createDocumentFile(m_root, "Checklist.kelchk");
    QCOMPARE(path, m_root + "/Checklist.kelchk");
    QCOMPARE(readFile(path), QByteArray("the user's own list"));
    QCOMPARE(readFile(favourite("kelchk")), QByteArray("the user's own list"));
}

void TestDocumentFactory::secondFileOfTheSameNameCountsFromTwo()
{
    QCOMPARE(createDocumentFile(m_root, "Array Test Report.kelatr"), m_root + "/Array Test Report.kelatr");
    writeFile(m_root + "/Array Test Report.kelatr", "in use");
    QCOMPARE(createDocumentFile(m_root, "Array Test Report.kelatr"),
             m_root + "/Array Test Report (2).kelatr");
    QCOMPARE(createDocumentFile(m_root, "Array Test Report.kelatr"),
             m_root + "/Array Test Report (3).kelatr");
    QCOMPARE(readFile(m_root + "/Array Test Report.kelatr"), QByteArray("in use"));
    QCOMPARE(readFile(m_root + "/Array Test Report (3).kelatr"), pristine("en", "kelatr"));
}

void TestDocumentFactory::germanSessionTakesTheGermanForm()
{
    useLanguage("de", QLocale("de"));
    const QString path = createDocumentFile(m_root, newDocumentNames().testReport);
    QCOMPARE(path, m_root + "/Prüfbericht PV-Generator.kelatr");
    QCOMPARE(readFile(path), pristine("de", "kelatr"));
    QVERIFY(pristine("de", "kelatr") != pristine("en", "kelatr"));
}

void TestDocumentFactory::missingPristineDocumentLeavesNoFile()
{
    const BoxWatcher watcher;
    const QString path = createDocumentFile(m_root, "Anything.kelnone");
    QCOMPARE(path, m_root + "/Anything.kelnone");
    QVERIFY(!QFileInfo::exists(path));
    QVERIFY(!QFileInfo::exists(favourite("kelnone")));
}

void TestDocumentFactory::newReportOpensAndCanBeWritten()
{
    const QString path = createDocumentFile(m_root, "Array Test Report.kelatr");
    QVERIFY(QFileInfo(path).isWritable());
    const std::unique_ptr<AbstractDocument> document(createDocument(path, nullptr));
    QVERIFY(document->isValid());
    QVERIFY(!document->isModified());
}

void TestDocumentFactory::currentFavouriteIsNotAskedAbout()
{
    writeFile(favourite("kelatr"), favouriteFrom(":res/reports_en/kelatr_rev3.pak"));
    const BoxWatcher watcher;
    const QString path = createDocumentFile(m_root, "Array Test Report.kelatr");
    QCOMPARE(readFile(path), favouriteFrom(":res/reports_en/kelatr_rev3.pak"));
}

void TestDocumentFactory::favouriteOfAnOlderRevisionIsReplacedAfterYes()
{
    writeFile(favourite("kelatr"), favouriteFrom(":res/reports_en/kelatr_rev2.pak"));
    BoxWatcher watcher;
    watcher.expect("older version", QMessageBox::Yes);
    const QString path = createDocumentFile(m_root, "Array Test Report.kelatr");
    QCOMPARE(watcher.texts(), QStringList{oldFavouriteText});
    const BoxWatcher::Box box = watcher.boxes().first();
    QCOMPARE(box.icon, QMessageBox::Warning);
    QCOMPARE(box.informativeText,
             QString("Would you like to replace the favourite with the new version of the report?"));
    QCOMPARE(box.buttons, QMessageBox::Yes | QMessageBox::No);
    QCOMPARE(readFile(favourite("kelatr")), pristine("en", "kelatr"));
    QCOMPARE(readFile(path), pristine("en", "kelatr"));
}

void TestDocumentFactory::favouriteOfAnOlderRevisionIsUsedAfterNo()
{
    const QByteArray old = favouriteFrom(":res/reports_en/kelatr.pak");
    writeFile(favourite("kelatr"), old);
    BoxWatcher watcher;
    watcher.expect(oldFavouriteText, QMessageBox::No);
    const QString path = createDocumentFile(m_root, "Array Test Report.kelatr");
    QCOMPARE(readFile(favourite("kelatr")), old);
    QCOMPARE(readFile(path), old);
}

void TestDocumentFactory::favouriteOfAnotherLanguageCountsAsOld()
{
    writeFile(favourite("kelatr"), favouriteFrom(":res/reports_de/kelatr_rev3.pak"));
    BoxWatcher watcher;
    watcher.expect(oldFavouriteText, QMessageBox::Yes);
    createDocumentFile(m_root, "Array Test Report.kelatr");
    QCOMPARE(readFile(favourite("kelatr")), pristine("en", "kelatr"));
}

void TestDocumentFactory::favouriteWithoutATemplateCountsAsOld()
{
    writeFile(favourite("kelatr"), ReportSample::pack("<report/>"));
    BoxWatcher watcher;
    watcher.expect(oldFavouriteText, QMessageBox::No);
    createDocumentFile(m_root, "Array Test Report.kelatr");
}

void TestDocumentFactory::favouriteThatCannotBeReadCountsAsCurrent_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("no container") << QByteArray("nothing of the kind");
    QTest::newRow("empty file") << QByteArray();
    QTest::newRow("no entry") << ReportSample::pack(ReportSample::Entries());
    QTest::newRow("no XML") << ReportSample::pack("<report resPak=\"x\">");
}

void TestDocumentFactory::favouriteThatCannotBeReadCountsAsCurrent()
{
    QFETCH(QByteArray, bytes);
    writeFile(favourite("kelatr"), bytes);
    const BoxWatcher watcher;
    const QString path = createDocumentFile(m_root, "Array Test Report.kelatr");
    QCOMPARE(readFile(path), bytes);
}

void TestDocumentFactory::ageIsAskedOfLowerCaseTestReportsOnly_data()
{
    QTest::addColumn<QString>("suffix");
    for (const char *suffix : {"KELATR", "kelir", "kelvc", "kelchk"})
        QTest::newRow(suffix) << suffix;
}

void TestDocumentFactory::ageIsAskedOfLowerCaseTestReportsOnly()
{
    QFETCH(QString, suffix);
    const QByteArray old = favouriteFrom(":res/reports_en/older.pak");
    writeFile(favourite(suffix), old);
    const BoxWatcher watcher;
    QCOMPARE(readFile(createDocumentFile(m_root, "Report." + suffix)), old);
}

KELMAR_TEST_MAIN(TestDocumentFactory)
#include "tst_documentfactory.moc"

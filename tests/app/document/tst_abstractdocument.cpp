#include "app/core/Shell.h"
#include "app/document/AbstractDocument.h"
#include "tests/support/BoxWatcher.h"
#include "tests/support/TestMain.h"

namespace {

class Document : public AbstractDocument
{
public:
    using AbstractDocument::AbstractDocument;
    void save() override { ++saves; }
    bool queryClose() override { return askToSave(QString("Save changes to %1?").arg(fileName())); }
    int saves = 0;
};

class Window : public QWidget, public Shell
{
public:
    QWidget *window() override { return this; }
    void import() override {}
    void download() override {}
};

} // namespace

class TestAbstractDocument : public QObject
{
    Q_OBJECT

private slots:
    void freshDocumentIsNeitherValidNorModified();
    void pathIsKeptAsItWasGiven();
    void titleShowsChanges();
    void percentSignsInTheNameStay();
    void titleChangeIsToldOnlyWhenTheStateChanges();
    void validityIsStoredAndNotTold();
    void baseClosesWithoutAQuestion();
    void unchangedDocumentClosesWithoutAQuestion();
    void yesSavesAndCloses();
    void noClosesWithoutSaving();
    void cancelKeepsTheDocumentOpen();
};

void TestAbstractDocument::freshDocumentIsNeitherValidNorModified()
{
    const AbstractDocument document("/jobs/site.kelir");
    QVERIFY(!document.isValid());
    QVERIFY(!document.isModified());
    QCOMPARE(document.windowTitle(), QString("site.kelir"));
    QVERIFY(!document.windowIcon().isNull());
}

void TestAbstractDocument::pathIsKeptAsItWasGiven()
{
    const AbstractDocument document("/jobs/../jobs//site.kelir");
    QCOMPARE(document.filePath(), QString("/jobs/../jobs//site.kelir"));
    QCOMPARE(document.fileName(), QString("site.kelir"));
}

void TestAbstractDocument::titleShowsChanges()
{
    AbstractDocument document("/jobs/site.kelir");
    document.setModified(true);
    QCOMPARE(document.windowTitle(), QString("site.kelir *"));
    document.setModified(false);
    QCOMPARE(document.windowTitle(), QString("site.kelir"));
}

void TestAbstractDocument::percentSignsInTheNameStay()
{
    AbstractDocument document("/jobs/100 %1.kelir");
    document.setModified(true);
    QCOMPARE(document.windowTitle(), QString("100 %1.kelir *"));
}

void TestAbstractDocument::titleChangeIsToldOnlyWhenTheStateChanges()
{
    AbstractDocument document("/jobs/site.kelir");
    QSignalSpy spy(&document, &AbstractDocument::titleChanged);
    QString titleWhenTold;
    connect(&document, &AbstractDocument::titleChanged, this,
            [&](AbstractDocument *doc) { titleWhenTold = doc->windowTitle(); });
    document.setModified(false);
    QCOMPARE(spy.size(), 0);
    document.setModified(true);
    QCOMPARE(spy.size(), 1);
    QCOMPARE(spy.first().first().value<AbstractDocument *>(), &document);
    QCOMPARE(titleWhenTold, QString("site.kelir *"));
    document.setModified(true);
    QCOMPARE(spy.size(), 1);
    document.setModified(false);
    QCOMPARE(spy.size(), 2);
}

void TestAbstractDocument::validityIsStoredAndNotTold()
{
    AbstractDocument document("/jobs/site.kelir");
    QSignalSpy spy(&document, &AbstractDocument::titleChanged);
    document.setValid(true);
    QVERIFY(document.isValid());
    document.setValid(false);
    QVERIFY(!document.isValid());
    QCOMPARE(spy.size(), 0);
}

void TestAbstractDocument::baseClosesWithoutAQuestion()
{
    AbstractDocument document("/jobs/site.kelir");
    document.setModified(true);
    BoxWatcher watcher;
    QVERIFY(document.queryClose());
    document.save();
    document.setCurrent(true);
    QVERIFY(document.isModified());
    QCOMPARE(watcher.boxes().size(), 0);
}

void TestAbstractDocument::unchangedDocumentClosesWithoutAQuestion()
{
    Document document("/jobs/site.kelir");
    BoxWatcher watcher;
    QVERIFY(document.queryClose());
    QCOMPARE(document.saves, 0);
    QCOMPARE(watcher.boxes().size(), 0);
}

void TestAbstractDocument::yesSavesAndCloses()
{
    const Window window;
    Document document("/jobs/site.kelir");
    document.setModified(true);
    BoxWatcher watcher;
    watcher.expect("Save changes to site.kelir?", QMessageBox::Yes);
    QVERIFY(document.queryClose());
    QCOMPARE(document.saves, 1);
    const BoxWatcher::Box box = watcher.boxes().first();
    QCOMPARE(box.icon, QMessageBox::Information);
    QCOMPARE(box.buttons, QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel);
    QCOMPARE(box.parent, &window);
}

void TestAbstractDocument::noClosesWithoutSaving()
{
    Document document("/jobs/site.kelir");
    document.setModified(true);
    BoxWatcher watcher;
    watcher.expect("Save changes", QMessageBox::No);
    QVERIFY(document.queryClose());
    QCOMPARE(document.saves, 0);
    QVERIFY(document.isModified());
}

void TestAbstractDocument::cancelKeepsTheDocumentOpen()
{
    Document document("/jobs/site.kelir");
    document.setModified(true);
    BoxWatcher watcher;
    watcher.expect("Save changes", QMessageBox::Cancel);
    QVERIFY(!document.queryClose());
    QCOMPARE(document.saves, 0);
}

KELMAR_TEST_MAIN(TestAbstractDocument)
#include "tst_abstractdocument.moc"

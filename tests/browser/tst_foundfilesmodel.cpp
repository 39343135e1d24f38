#include "app/core/DocumentType.h"
#include "app/core/Folders.h"
#include "browser/FoundFilesModel.h"
#include "tests/support/LocaleSwitch.h"
#include "tests/support/TestMain.h"

#include <QAbstractItemModelTester>

class TestFoundFilesModel : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { m_model.reset(); }

    void freshModelHasNoRows();
    void columnsAreNamed();
    void rowShowsTheNameBelowTheRootTheSizeAndTheLastChange();
    void sizeIsRoundedUpToWholeKilobytes_data();
    void sizeIsRoundedUpToWholeKilobytes();
    void sizeFollowsTheLocale();
    void folderHasNoSize();
    void rootThatEndsWithASlashIsCutToo();
    void fileBesideTheRootKeepsItsPath();
    void iconIsThatOfTheTreeInTheFirstColumnOnly();
    void pathIsTheSameInEveryColumn();
    void searchWithoutAFindShowsOneRowWithoutIcon();
    void nextSearchTakesTheRowWithoutAFindAwayByAReset();
    void nextSearchTakesTheFoundRowsAwayByAReset();
    void searchWithoutRowsBeforeResetsNothing();
    void endOfASearchWithRowsResetsNothing();
    void rowsAreAppendedOneByOne();
    void fileThatVanishedKeepsItsRow();

private:
    QString inRoot(const QString &relative) const
    {
        return TestHome::instance()->projectsRoot() + '/' + relative;
    }
    void add(const QString &relative, int size = 1);
    QVariant at(int row, int column, int role = Qt::DisplayRole) const
    {
        return m_model->data(m_model->index(row, column), role);
    }

    std::unique_ptr<FoundFilesModel> m_model;
};

void TestFoundFilesModel::init()
{
    TestHome::instance()->reset();
    Folders::instance(true);
    m_model = std::make_unique<FoundFilesModel>();
    new QAbstractItemModelTester(m_model.get(), QAbstractItemModelTester::FailureReportingMode::QtTest,
                                 m_model.get());
}

void TestFoundFilesModel::add(const QString &relative, int size)
{
    writeFile(inRoot(relative), QByteArray(size, 'x'));
    m_model->addFile(QFileInfo(inRoot(relative)));
}

void TestFoundFilesModel::freshModelHasNoRows()
{
    QCOMPARE(m_model->rowCount(), 0);
    QCOMPARE(m_model->columnCount(), 3);
    m_model->clearResults();
    QCOMPARE(m_model->rowCount(), 0);
    add("site.kelir");
    QCOMPARE(m_model->rowCount(), 1);
    QCOMPARE(m_model->rowCount(m_model->index(0, 0)), 0);
}

void TestFoundFilesModel::columnsAreNamed()
{
    QStringList names;
    for (int column = 0; column < 3; ++column)
        names.append(m_model->headerData(column, Qt::Horizontal).toString());
    QCOMPARE(names, (QStringList{"Name", "Size", "Last Modified"}));
    m_model->clearResults();
    add("site.kelir");
    QCOMPARE(m_model->headerData(0, Qt::Vertical).toInt(), 1);
    QVERIFY(!m_model->headerData(0, Qt::Horizontal, Qt::DecorationRole).isValid());
}

void TestFoundFilesModel::rowShowsTheNameBelowTheRootTheSizeAndTheLastChange()
{
    m_model->clearResults();
    writeFile(inRoot("Job 1/Roof/site.kelir"), QByteArray(2048, 'x'));
    QFile file(inRoot("Job 1/Roof/site.kelir"));
    QVERIFY(file.open(QIODevice::ReadWrite));
    QVERIFY(file.setFileTime(QDateTime({2016, 5, 8}, {18, 50, 13}), QFile::FileModificationTime));
    file.close();
    m_model->addFile(QFileInfo(file.fileName()));
    QCOMPARE(at(0, 0).toString(), QString("Job 1/Roof/site.kelir"));
    QCOMPARE(at(0, 1).toString(), QString("2 KB"));
    QCOMPARE(at(0, 2).toString(), QString("08/05/2016 18:50"));
}

void TestFoundFilesModel::sizeIsRoundedUpToWholeKilobytes_data()
{
    QTest::addColumn<qint64>("bytes");
    QTest::addColumn<QString>("text");
    QTest::newRow("empty") << qint64(0) << "0 KB";
    QTest::newRow("one byte") << qint64(1) << "1 KB";
    QTest::newRow("exactly one") << qint64(1024) << "1 KB";
    QTest::newRow("one more") << qint64(1025) << "2 KB";
    QTest::newRow("thousands") << qint64(1234) * 1024 << "1,234 KB";
    QTest::newRow("above a million") << qint64(1234567) * 1024 - 3 << "1,234,567 KB";
}

void TestFoundFilesModel::sizeIsRoundedUpToWholeKilobytes()
{
    QFETCH(qint64, bytes);
    // A file with a hole takes no room, whatever its size is.
    QFile file(inRoot("big.bin"));
    QVERIFY(QDir().mkpath(inRoot("")) && file.open(QIODevice::WriteOnly) && file.resize(bytes));
    file.close();
    const LocaleSwitch english("en");
    m_model->clearResults();
    m_model->addFile(QFileInfo(file.fileName()));
    QTEST(at(0, 1).toString(), "text");
}

void TestFoundFilesModel::sizeFollowsTheLocale()
{
    m_model->clearResults();
    add("site.kelir", 1234 * 1024);
    const LocaleSwitch german("de");
    QCOMPARE(at(0, 1).toString(), QString("1.234 KB"));
}

void TestFoundFilesModel::folderHasNoSize()
{
    QVERIFY(QDir().mkpath(inRoot("Job")));
    m_model->clearResults();
    m_model->addFile(QFileInfo(inRoot("Job")));
    QCOMPARE(at(0, 0).toString(), QString("Job"));
    QVERIFY(at(0, 1).toString().isEmpty());
    QVERIFY(!at(0, 2).toString().isEmpty());
}

void TestFoundFilesModel::rootThatEndsWithASlashIsCutToo()
{
    QVERIFY(Folders::instance()->setProjectsRoot(inRoot("")));
    m_model->clearResults();
    add("Job/site.kelir");
    QCOMPARE(at(0, 0).toString(), QString("Job/site.kelir"));
}

void TestFoundFilesModel::fileBesideTheRootKeepsItsPath()
{
    m_model->clearResults();
    add("Job/site.kelir");
    // The root of a later choice begins like the folder, but is not around the file.
    QVERIFY(QDir().mkpath(inRoot("Jo")));
    QVERIFY(Folders::instance()->setProjectsRoot(inRoot("Jo")));
    QCOMPARE(at(0, 0).toString(), inRoot("Job/site.kelir"));
}

void TestFoundFilesModel::iconIsThatOfTheTreeInTheFirstColumnOnly()
{
    m_model->clearResults();
    add("Pack/handover.kelchk");
    m_model->addFile(QFileInfo(inRoot("Pack")));
    const auto picture = [](const QVariant &icon) { return icon.value<QIcon>().pixmap(16).toImage(); };
    QVERIFY(!picture(at(0, 0, Qt::DecorationRole)).isNull());
    QCOMPARE(picture(at(0, 0, Qt::DecorationRole)), picture(documentIcon(inRoot("Pack/handover.kelchk"))));
    QCOMPARE(picture(at(1, 0, Qt::DecorationRole)),
             QIcon(":res/fileTypes/chp_folder.png").pixmap(16).toImage());
    QVERIFY(!at(0, 1, Qt::DecorationRole).isValid());
    QVERIFY(!at(0, 2, Qt::DecorationRole).isValid());
}

void TestFoundFilesModel::pathIsTheSameInEveryColumn()
{
    m_model->clearResults();
    add("Job/site.kelir");
    QCOMPARE(FoundFilesModel::filePathRole, 256);
    for (int column = 0; column < 3; ++column)
        QCOMPARE(at(0, column, 256).toString(), inRoot("Job/site.kelir"));
}

void TestFoundFilesModel::searchWithoutAFindShowsOneRowWithoutIcon()
{
    m_model->clearResults();
    QCOMPARE(m_model->rowCount(), 0);
    QSignalSpy resets(m_model.get(), &QAbstractItemModel::modelReset);
    m_model->searchDone();
    QCOMPARE(resets.count(), 1);
    QCOMPARE(m_model->rowCount(), 1);
    QCOMPARE(at(0, 0).toString(), QString("Search is complete. There are no results to display."));
    for (int column = 0; column < 3; ++column) {
        for (const int role : {int(Qt::DecorationRole), 256, int(Qt::ToolTipRole)})
            QVERIFY(!at(0, column, role).isValid());
    }
    QVERIFY(!at(0, 1).isValid());
    QVERIFY(!at(0, 2).isValid());
}

void TestFoundFilesModel::nextSearchTakesTheRowWithoutAFindAwayByAReset()
{
    m_model->clearResults();
    m_model->searchDone();
    QSignalSpy resets(m_model.get(), &QAbstractItemModel::modelReset);
    m_model->clearResults();
    QCOMPARE(resets.count(), 1);
    QCOMPARE(m_model->rowCount(), 0);
}

void TestFoundFilesModel::nextSearchTakesTheFoundRowsAwayByAReset()
{
    m_model->clearResults();
    add("site.kelir");
    m_model->searchDone();
    QCOMPARE(m_model->rowCount(), 1);
    QSignalSpy resets(m_model.get(), &QAbstractItemModel::modelReset);
    m_model->clearResults();
    QCOMPARE(resets.count(), 1);
    QCOMPARE(m_model->rowCount(), 0);
}

void TestFoundFilesModel::searchWithoutRowsBeforeResetsNothing()
{
    QSignalSpy resets(m_model.get(), &QAbstractItemModel::modelReset);
    m_model->clearResults();
    QCOMPARE(resets.count(), 0);
}

void TestFoundFilesModel::endOfASearchWithRowsResetsNothing()
{
    m_model->clearResults();
    add("site.kelir");
    QSignalSpy resets(m_model.get(), &QAbstractItemModel::modelReset);
    m_model->searchDone();
    QCOMPARE(resets.count(), 0);
    QCOMPARE(at(0, 0).toString(), QString("site.kelir"));
}

void TestFoundFilesModel::rowsAreAppendedOneByOne()
{
    m_model->clearResults();
    QSignalSpy insertions(m_model.get(), &QAbstractItemModel::rowsInserted);
    for (int i = 0; i < 3; ++i)
        add(QString("%1.kelir").arg(i));
    QCOMPARE(insertions.count(), 3);
    QCOMPARE(insertions.last().at(1).toInt(), 2);
    QCOMPARE(insertions.last().at(2).toInt(), 2);
    QCOMPARE(at(2, 0).toString(), QString("2.kelir"));
}

void TestFoundFilesModel::fileThatVanishedKeepsItsRow()
{
    m_model->clearResults();
    add("site.kelir", 3000);
    QVERIFY(QFile::remove(inRoot("site.kelir")));
    QCOMPARE(at(0, 0).toString(), QString("site.kelir"));
    QCOMPARE(at(0, 0, 256).toString(), inRoot("site.kelir"));
    QVERIFY(at(0, 0, Qt::DecorationRole).isValid());
}

KELMAR_TEST_MAIN(TestFoundFilesModel)
#include "tst_foundfilesmodel.moc"

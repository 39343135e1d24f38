#include "app/core/DocumentType.h"
#include "app/core/Folders.h"
#include "browser/FoundFilesModel.h"
#include "browser/RightAlignedDelegate.h"
#include "browser/SearchResultsDocument.h"
#include "tests/support/TestMain.h"

#include <QHeaderView>
#include <QTableView>

namespace {

/// Counts how often a view asks.
class CountedModel : public FoundFilesModel
{
public:
    using FoundFilesModel::FoundFilesModel;
    QVariant data(const QModelIndex &index, int role) const override
    {
        ++questions;
        return FoundFilesModel::data(index, role);
    }
    mutable int questions = 0;
};

class PaintCounter : public QObject
{
public:
    explicit PaintCounter(QObject *watched) { watched->installEventFilter(this); }
    bool eventFilter(QObject *, QEvent *event) override
    {
        paints += event->type() == QEvent::Paint ? 1 : 0;
        return false;
    }
    int paints = 0;
};

/// The first and the last column of an image that have ink, as parts of its width.
QPair<double, double> inkSpan(const QImage &image)
{
    const QColor paper = image.pixelColor(1, 1);
    int first = image.width();
    int last = -1;
    for (int x = 0; x < image.width(); ++x) {
        for (int y = 0; y < image.height(); ++y) {
            if (image.pixelColor(x, y) != paper) {
                first = qMin(first, x);
                last = x;
            }
        }
    }
    return {double(first) / image.width(), double(last) / image.width()};
}

} // namespace

class TestSearchResults : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void titleAndIconAreThoseOfASearch();
    void documentNeitherSavesNorAsks();
    void tableIsPlainWithLowRows();
    void sizesStandAtTheRightOfTheirColumn();
    void activatedRowTellsItsPath();
    void rowWithoutAFindTellsAnEmptyPath();

    void columnsAreFittedAfterEachRow();
    void rowOutOfSightCostsNoQuestionAndNoPaint();
    void rowOutOfSightDoesNotWidenItsColumn();
    void rowAfterAScrollFitsTheColumnsToWhatIsSeen();
    void rowAfterAColumnWasPulledFitsItAgain();
    void endOfTheSearchFitsTheColumns();
    void hiddenTabIsFittedWhenItIsShown();
    void newSearchInAHiddenTabIsCheapToo();
    void rowsInSightArePainted();
    void firstRowsOfASecondSearchArePainted();
    void scrollBarReachesTheLastRow();
    void modelSetForEachSearchIsFollowedOnce();
    void modelOutlivesTheDocument();

private:
    void add(int count, const QString &pattern = QStringLiteral("Report %1.kelir"));
    int width(int column) const { return m_table->columnWidth(column); }

    std::unique_ptr<CountedModel> m_model;
    std::unique_ptr<SearchResultsDocument> m_document;
    QTableView *m_table = nullptr;
};

void TestSearchResults::init()
{
    TestHome::instance()->reset();
    Folders::instance(true);
    m_model = std::make_unique<CountedModel>();
    m_document = std::make_unique<SearchResultsDocument>("/data/Search Results");
    m_document->setResultsModel(m_model.get());
    m_table = m_document->findChild<QTableView *>();
    m_document->resize(600, 400);
    m_document->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_document.get()));
    m_model->clearResults();
}

void TestSearchResults::cleanup()
{
    m_document.reset();
    m_model.reset();
}

/// Adds rows of files that need not be there, with what the event loop does after each.
void TestSearchResults::add(int count, const QString &pattern)
{
    for (int i = 0; i < count; ++i) {
        m_model->addFile(QFileInfo(TestHome::instance()->projectsRoot() + '/' +
                                   (pattern.contains("%1") ? pattern.arg(i) : pattern)));
        QCoreApplication::processEvents();
    }
}

void TestSearchResults::titleAndIconAreThoseOfASearch()
{
    QCOMPARE(m_document->windowTitle(), QString("Search Results"));
    QCOMPARE(m_document->windowIcon().pixmap(16).toImage(),
             QIcon(":res/fileTypes/search.png").pixmap(16).toImage());
    QVERIFY(!m_document->windowIcon().isNull());
    QVERIFY(!m_document->isModified());
}

void TestSearchResults::documentNeitherSavesNorAsks()
{
    add(1);
    m_document->save();
    QVERIFY(!QFileInfo::exists("/data/Search Results"));
    QVERIFY(m_document->queryClose());
    m_document->setModified(true);
    QVERIFY(m_document->queryClose());
}

void TestSearchResults::tableIsPlainWithLowRows()
{
    QCOMPARE(m_table->gridStyle(), Qt::NoPen);
    QVERIFY(m_table->verticalHeader()->isHidden());
    QCOMPARE(m_table->verticalHeader()->defaultSectionSize(), 18);
    add(2);
    QCOMPARE(m_table->rowHeight(1), 18);
    auto *delegate = qobject_cast<RightAlignedDelegate *>(m_table->itemDelegateForColumn(1));
    QVERIFY(delegate);
    QCOMPARE(delegate->parent(), m_document.get());
    QVERIFY(!m_table->itemDelegateForColumn(0));
    QVERIFY(!m_table->itemDelegateForColumn(2));
}

void TestSearchResults::sizesStandAtTheRightOfTheirColumn()
{
    writeFile(TestHome::instance()->projectsRoot() + "/a.kelir", "x");
    add(1, "a.kelir");
    for (int column = 0; column < 3; ++column)
        m_table->setColumnWidth(column, 200);
    m_table->setCurrentIndex(QModelIndex());
    m_table->clearFocus();
    QCoreApplication::processEvents();
    const auto spanOf = [this](int column) {
        const QRect cell = m_table->visualRect(m_model->index(0, column)).adjusted(1, 1, -1, -1);
        return inkSpan(m_table->viewport()->grab(cell).toImage());
    };
    QVERIFY(spanOf(1).first > 0.7);
    QVERIFY(spanOf(1).second > 0.95);
    QVERIFY(spanOf(2).first < 0.05);
}

void TestSearchResults::activatedRowTellsItsPath()
{
    add(3);
    QSignalSpy opened(m_document.get(), &SearchResultsDocument::openDocument);
    const QPoint place = m_table->visualRect(m_model->index(1, 2)).center();
    QTest::mouseClick(m_table->viewport(), Qt::LeftButton, Qt::NoModifier, place);
    QTest::mouseDClick(m_table->viewport(), Qt::LeftButton, Qt::NoModifier, place);
    QCOMPARE(opened.count(), 1);
    QCOMPARE(opened.first().first().toString(), TestHome::instance()->projectsRoot() + "/Report 1.kelir");
}

void TestSearchResults::rowWithoutAFindTellsAnEmptyPath()
{
    m_model->searchDone();
    QSignalSpy opened(m_document.get(), &SearchResultsDocument::openDocument);
    const QPoint place = m_table->visualRect(m_model->index(0, 0)).center();
    QTest::mouseClick(m_table->viewport(), Qt::LeftButton, Qt::NoModifier, place);
    QTest::mouseDClick(m_table->viewport(), Qt::LeftButton, Qt::NoModifier, place);
    QCOMPARE(opened.count(), 1);
    QVERIFY(opened.first().first().toString().isEmpty());
}

void TestSearchResults::columnsAreFittedAfterEachRow()
{
    int before = 0;
    for (const char *name : {"a.kelir", "a longer name.kelir", "an even longer name.kelir"}) {
        add(1, name);
        QVERIFY(width(0) > before);
        before = width(0);
        QVERIFY(width(0) > m_table->fontMetrics().horizontalAdvance(
                               m_model->index(m_model->rowCount() - 1, 0).data().toString()));
    }
    writeFile(TestHome::instance()->projectsRoot() + "/there.kelir", "x");
    add(1, "there.kelir");
    QVERIFY(width(1) > m_table->fontMetrics().horizontalAdvance("1 KB"));
    QVERIFY(width(2) > m_table->fontMetrics().horizontalAdvance("08/05/2016 18:50"));
}

void TestSearchResults::rowOutOfSightCostsNoQuestionAndNoPaint()
{
    // More than the tab shows: so it stays for all the rows to come.
    add(100);
    QTest::qWait(50);
    const PaintCounter counter(m_table->viewport());
    m_model->questions = 0;
    add(500);
    QCOMPARE(m_model->questions, 0);
    QCOMPARE(counter.paints, 0);
}

void TestSearchResults::rowOutOfSightDoesNotWidenItsColumn()
{
    add(100);
    const int before = width(0);
    add(1, QString(60, 'W') + ".kelir");
    QCOMPARE(width(0), before);
}

void TestSearchResults::rowAfterAScrollFitsTheColumnsToWhatIsSeen()
{
    add(100);
    const QString wide = QString(60, 'W') + ".kelir";
    add(1, wide);
    add(100);
    const int before = width(0);
    m_table->scrollTo(m_model->index(100, 0), QAbstractItemView::PositionAtCenter);
    QCOMPARE(width(0), before);
    add(1);
    QVERIFY(width(0) > before);
    m_table->scrollToTop();
    add(1);
    QCOMPARE(width(0), before);
}

void TestSearchResults::rowAfterAColumnWasPulledFitsItAgain()
{
    add(100);
    const int before = width(0);
    m_table->setColumnWidth(0, before + 150);
    add(1);
    QCOMPARE(width(0), before);
}

void TestSearchResults::endOfTheSearchFitsTheColumns()
{
    add(3);
    const int before = width(0);
    m_table->setColumnWidth(0, before + 150);
    m_document->resizeColumns();
    QCOMPARE(width(0), before);
}

void TestSearchResults::hiddenTabIsFittedWhenItIsShown()
{
    m_document->hide();
    add(1, QString(60, 'W') + ".kelir");
    m_document->resizeColumns();
    const int before = width(0);
    m_document->show();
    QTRY_VERIFY(width(0) > before);
    QVERIFY(width(0) > m_table->fontMetrics().horizontalAdvance(
                           m_model->index(m_model->rowCount() - 1, 0).data().toString()));
}

void TestSearchResults::newSearchInAHiddenTabIsCheapToo()
{
    add(300);
    m_document->hide();
    m_model->clearResults();
    m_model->questions = 0;
    add(300);
    m_document->resizeColumns();
    QCOMPARE(m_model->questions, 0);
    m_document->show();
    QTRY_VERIFY(m_model->questions > 0);
}

void TestSearchResults::rowsInSightArePainted()
{
    add(3);
    QTest::qWait(50);
    const PaintCounter counter(m_table->viewport());
    add(1);
    QTRY_VERIFY(counter.paints > 0);
    const QRect row = m_table->visualRect(m_model->index(3, 0)).adjusted(1, 1, -1, -1);
    QVERIFY(row.isValid());
    QVERIFY(inkSpan(m_table->viewport()->grab(row).toImage()).second > 0);
}

void TestSearchResults::firstRowsOfASecondSearchArePainted()
{
    add(100);
    QTest::qWait(50);
    const PaintCounter counter(m_table->viewport());
    m_model->searchDone();
    m_model->clearResults();
    QTRY_VERIFY(counter.paints > 0);
    const int cleared = counter.paints;
    add(1);
    QTRY_VERIFY(counter.paints > cleared);
    const int first = counter.paints;
    m_model->clearResults();
    m_model->searchDone();
    QTRY_VERIFY(counter.paints > first);
    QCOMPARE(m_model->rowCount(), 1);
}

void TestSearchResults::scrollBarReachesTheLastRow()
{
    add(300);
    m_table->scrollToBottom();
    QCoreApplication::processEvents();
    const QRect last = m_table->visualRect(m_model->index(299, 0));
    QVERIFY(m_table->viewport()->rect().contains(last.center()));
    // The row that comes next, below the last one, can be reached in its turn.
    add(1);
    m_table->scrollToBottom();
    QVERIFY(m_table->viewport()->rect().contains(m_table->visualRect(m_model->index(300, 0)).center()));
}

void TestSearchResults::modelSetForEachSearchIsFollowedOnce()
{
    const auto questionsForARow = [this] {
        m_model->clearResults();
        QCoreApplication::processEvents();
        m_model->questions = 0;
        m_model->addFile(QFileInfo(TestHome::instance()->projectsRoot() + "/a.kelir"));
        return m_model->questions;
    };
    questionsForARow();
    const int once = questionsForARow();
    QVERIFY(once > 0);
    for (int search = 0; search < 5; ++search)
        m_document->setResultsModel(m_model.get());
    QCOMPARE(questionsForARow(), once);
}

void TestSearchResults::modelOutlivesTheDocument()
{
    add(3);
    m_document.reset();
    add(3);
    m_model->searchDone();
    QCOMPARE(m_model->rowCount(), 6);
    m_document = std::make_unique<SearchResultsDocument>("/data/Search Results");
    m_document->setResultsModel(m_model.get());
    m_table = m_document->findChild<QTableView *>();
    QCOMPARE(m_table->model()->rowCount(), 6);
}

KELMAR_TEST_MAIN(TestSearchResults)
#include "tst_searchresults.moc"

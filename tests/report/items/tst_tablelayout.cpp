#include "report/items/TableLayout.h"

#include "tests/support/TestMain.h"

using namespace TableLayout;
using Described = QVector<std::optional<double>>;

class tst_TableLayout : public QObject
{
    Q_OBJECT

private slots:
    void columnsWithoutSizeShareWhatRemains();
    void aDescribedColumnOfSizeZeroTakesTheShareToo();
    void withEveryColumnDescribedAllPositionsRemainZero();
    void noColumnsGiveNoTracks();
    void theFirstEmptyColumnIsBehindTheLastText();
    void onlyTheListedRowsCount();
    void aFullTableHasNoEmptyColumn();
    void withNoCellsTheFirstColumnIsEmpty();
    void gridsThatNoFormHasAreRefused();
};

void tst_TableLayout::columnsWithoutSizeShareWhatRemains()
{
    const QVector<Track> result = tracks(Described{100.0, std::nullopt, std::nullopt, 60.0}, 300.0);
    QCOMPARE(result.size(), 4);
    const double sizes[] = {100, 70, 70, 60};
    const double positions[] = {0, 100, 170, 240};
    for (int i = 0; i < 4; ++i) {
        QCOMPARE(result[i].size, sizes[i]);
        QCOMPARE(result[i].position, positions[i]);
    }
}

void tst_TableLayout::aDescribedColumnOfSizeZeroTakesTheShareToo()
{
    // The share is reckoned without it: what remains goes to the one column that is not described.
    const QVector<Track> result = tracks(Described{100.0, 0.0, std::nullopt}, 300.0);
    QCOMPARE(result[1].size, 200.0);
    QCOMPARE(result[2].size, 200.0);
    QCOMPARE(result[2].position, 300.0);
}

void tst_TableLayout::withEveryColumnDescribedAllPositionsRemainZero()
{
    const QVector<Track> result = tracks(Described{100.0, 0.0, 50.0}, 300.0);
    for (const Track &track : result)
        QCOMPARE(track.position, 0.0);
    QCOMPARE(result[0].size, 100.0);
    QCOMPARE(result[1].size, 0.0);
    QCOMPARE(result[2].size, 50.0);
}

void tst_TableLayout::noColumnsGiveNoTracks()
{
    QVERIFY(tracks({}, 300.0).isEmpty());
}

void tst_TableLayout::theFirstEmptyColumnIsBehindTheLastText()
{
    const QVector<Entry> entries{
        {0, 12, false}, {1, 12, false}, {2, 12, true}, {4, 13, false}, {5, 13, true}};
    QCOMPARE(firstEmptyColumn(entries, {12}, 8), 2);
    QCOMPARE(firstEmptyColumn(entries, {12, 13}, 8), 5);
}

void tst_TableLayout::onlyTheListedRowsCount()
{
    const QVector<Entry> entries{{0, 12, false}, {7, 15, false}};
    QCOMPARE(firstEmptyColumn(entries, {12}, 8), 1);
    QCOMPARE(firstEmptyColumn(entries, {13}, 8), 0);
}

void tst_TableLayout::aFullTableHasNoEmptyColumn()
{
    QCOMPARE(firstEmptyColumn({{7, 12, false}}, {12}, 8), -1);
    QCOMPARE(firstEmptyColumn({{9, 12, false}}, {12}, 8), -1);
}

void tst_TableLayout::withNoCellsTheFirstColumnIsEmpty()
{
    QCOMPARE(firstEmptyColumn({}, {12}, 8), 0);
    QCOMPARE(firstEmptyColumn({}, {12}, 0), -1);
}

void tst_TableLayout::gridsThatNoFormHasAreRefused()
{
    QVERIFY(isAcceptableGrid(8, 26));
    QVERIFY(isAcceptableGrid(0, 0));
    QVERIFY(isAcceptableGrid(128, 128));
    QVERIFY(!isAcceptableGrid(65535, 65535));
    QVERIFY(!isAcceptableGrid(1000000, 0));
    QVERIFY(!isAcceptableGrid(0, 65535));
    QVERIFY(!isAcceptableGrid(-1, 26));
    QVERIFY(!isAcceptableGrid(8, -26));
}

KELMAR_TEST_MAIN(tst_TableLayout)
#include "tst_tablelayout.moc"

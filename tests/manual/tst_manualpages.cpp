#include "tests/support/TestHome.h"
#include "tools/manual/EditionLayout.h"
#include "tools/manual/ManualContents.h"
#include "tools/manual/PageFlow.h"

#include <QBuffer>
#include <QPdfWriter>
#include <QtTest>

namespace {

/// A box of a height and nothing to paint.
class PlainBox : public PageBox
{
public:
    PlainBox(const QString &boxName, qreal boxHeight) : name(boxName) { height = boxHeight; }
    void paint(QPainter &, const QPointF &) const override {}

    QString name;
};

std::shared_ptr<PlainBox> box(const QString &name, qreal height)
{
    return std::make_shared<PlainBox>(name, height);
}

std::shared_ptr<PlainBox> heading(const QString &name)
{
    auto made = box(name, 10);
    made->keepWithNext = true;
    made->isHeading = true;
    return made;
}

std::shared_ptr<PlainBox> picture(const QString &name, qreal height)
{
    auto made = box(name, height);
    made->mayFloat = true;
    return made;
}

/// The names on each page of 100.
QStringList flowed(const PageBoxes &boxes)
{
    QStringList pages;
    for (const ManualPage &page : flowIntoPages(boxes, 100)) {
        QStringList names;
        for (const PlacedBox &placed : page.boxes)
            names.append(dynamic_cast<const PlainBox &>(*placed.box).name);
        pages.append(names.join(' '));
    }
    return pages;
}

/// The manual as it is, laid out as for the file.
class LaidOut
{
public:
    explicit LaidOut(const QString &language) : m_writer(&m_file), style(&m_writer)
    {
        m_file.open(QIODevice::WriteOnly);
        m_writer.setPageSize(QPageSize(QPageSize::A4));
        m_writer.setResolution(300);
        layout = layOutEdition(readManualEdition(KELMAR_MANUAL_SOURCE "/" + language), style, 2);
    }

private:
    QBuffer m_file;
    QPdfWriter m_writer;

public:
    PageStyle style;
    EditionLayout layout;
};

} // namespace

class TestManualPages : public QObject
{
    Q_OBJECT

private slots:
    void boxesFillThePagesInOrder();
    void roomAboveABoxGoesAtTheTopOfAPage();
    void aHeadingGoesToThePageOfWhatFollows();
    void aChapterBeginsAPage();
    void textFillsTheRoomThatAPictureHasNoUseFor();
    void picturesKeepTheirOrder();
    void aWaitingPictureStaysInItsSection();
    void aBoxTallerThanAPageStandsAllTheSame();
    void theHeadOfATableIsRepeatedAtTheTopOfAPage();
    void aChapterDoesNotEndInAFewLines();
    void whatStaysTogetherIsTakenAlongTogether();
    void aSectionIsTakenAlongWholeFromTheLowerPart();
    void aPageIsNotEmptiedForTheNextOne();
    void aShortChapterMayBeShort();

    void referencesAndContentsTellTheRightPages();
    void nothingRunsOverAPage_data() { languages(); }
    void nothingRunsOverAPage();
    void nothingRunsOverItsColumn_data() { languages(); }
    void nothingRunsOverItsColumn();
    void noHeadingStandsLastOnItsPage_data() { languages(); }
    void noHeadingStandsLastOnItsPage();
    void noPageIsNearlyEmpty_data() { languages(); }
    void noPageIsNearlyEmpty();

private:
    static void languages()
    {
        QTest::addColumn<QString>("language");
        QTest::newRow("English") << "en";
        QTest::newRow("German") << "de";
    }
};

void TestManualPages::boxesFillThePagesInOrder()
{
    QCOMPARE(flowed({}), QStringList());
    QCOMPARE(flowed({box("a", 40), box("b", 60), box("c", 30)}), (QStringList{"a b", "c"}));
}

void TestManualPages::roomAboveABoxGoesAtTheTopOfAPage()
{
    const auto second = box("b", 60);
    second->before = 10;
    QCOMPARE(flowed({box("a", 30), second}), QStringList{"a b"});
    QCOMPARE(flowed({box("a", 31), second}), (QStringList{"a", "b"}));
    QCOMPARE(flowIntoPages({box("a", 31), second}, 100).at(1).boxes.first().y, 0.0);
}

void TestManualPages::aHeadingGoesToThePageOfWhatFollows()
{
    QCOMPARE(flowed({box("a", 80), heading("h"), box("b", 10)}), QStringList{"a h b"});
    QCOMPARE(flowed({box("a", 80), heading("h"), box("b", 11)}), (QStringList{"a", "h b"}));
    QCOMPARE(flowed({box("a", 70), heading("h"), heading("i"), box("b", 11)}), (QStringList{"a", "h i b"}));
}

void TestManualPages::aChapterBeginsAPage()
{
    const auto chapter = heading("h");
    chapter->startsPage = true;
    chapter->chapter = "Title";
    const PageBoxes boxes{box("a", 10), chapter, box("b", 95), box("c", 10)};
    QCOMPARE(flowed(boxes), (QStringList{"a", "h b", "c"}));
    QStringList titles;
    for (const ManualPage &page : flowIntoPages(boxes, 110))
        titles.append(page.chapter);
    QCOMPARE(titles, (QStringList{"", "Title", "Title"}));
}

void TestManualPages::textFillsTheRoomThatAPictureHasNoUseFor()
{
    QCOMPARE(flowed({box("a", 50), picture("p", 60), box("b", 30), box("c", 30)}),
             (QStringList{"a b", "p c"}));
    QCOMPARE(flowed({box("a", 50), picture("p", 50), box("b", 30)}), (QStringList{"a p", "b"}));
    QCOMPARE(flowed({box("a", 50), picture("p", 60)}), (QStringList{"a", "p"}));
}

void TestManualPages::picturesKeepTheirOrder()
{
    QCOMPARE(flowed({box("a", 50), picture("p", 60), picture("q", 20), box("b", 20)}),
             (QStringList{"a b", "p q"}));
}

void TestManualPages::aWaitingPictureStaysInItsSection()
{
    QCOMPARE(flowed({box("a", 50), picture("p", 60), box("b", 10), heading("h"), box("c", 10)}),
             (QStringList{"a b", "p h c"}));
}

void TestManualPages::aBoxTallerThanAPageStandsAllTheSame()
{
    QCOMPARE(flowed({box("a", 10), box("b", 150), box("c", 10)}), (QStringList{"a", "b", "c"}));
    QCOMPARE(flowed({box("a", 10), picture("p", 150), box("c", 10)}), (QStringList{"a c", "p"}));
}

void TestManualPages::theHeadOfATableIsRepeatedAtTheTopOfAPage()
{
    const auto head = box("H", 10);
    head->keepWithNext = true;
    PageBoxes boxes{box("a", 50), head};
    for (const char *name : {"1", "2", "3", "4", "5", "6"}) {
        boxes.push_back(box(name, 20));
        boxes.back()->repeated = head;
    }
    QCOMPARE(flowed(boxes), (QStringList{"a H 1 2", "H 3 4 5 6"}));
    boxes.front()->height = 75;
    QCOMPARE(flowed(boxes), (QStringList{"a", "H 1 2 3 4", "H 5 6"}));
}

void TestManualPages::aChapterDoesNotEndInAFewLines()
{
    QCOMPARE(flowed({box("a", 40), box("b", 30), box("c", 30), box("d", 10)}), (QStringList{"a b", "c d"}));
    QCOMPARE(flowed({box("a", 40), box("b", 30), box("c", 30), box("d", 25)}), (QStringList{"a b c", "d"}));
    // Not only the last one.
    const auto chapter = heading("h");
    chapter->startsPage = true;
    QCOMPARE(flowed({box("a", 50), box("b", 50), box("c", 5), chapter, box("d", 60), box("e", 40)}),
             (QStringList{"a", "b c", "h d", "e"}));
    // What stands in the place of a picture that waits.
    QCOMPARE(flowed({box("a", 80), picture("p", 21), box("b", 10), box("c", 10)}),
             (QStringList{"a b", "p c"}));
}

void TestManualPages::whatStaysTogetherIsTakenAlongTogether()
{
    QCOMPARE(flowed({box("a", 60), heading("h"), box("b", 30), box("c", 10)}), (QStringList{"a", "h b c"}));
}

void TestManualPages::aSectionIsTakenAlongWholeFromTheLowerPart()
{
    QCOMPARE(flowed({box("a", 40), heading("h"), box("b", 25), box("c", 25), box("d", 10)}),
             (QStringList{"a", "h b c d"}));
    QCOMPARE(flowed({box("a", 39), heading("h"), box("b", 25), box("c", 26), box("d", 10)}),
             (QStringList{"a h b", "c d"}));
}

void TestManualPages::aPageIsNotEmptiedForTheNextOne()
{
    QCOMPARE(flowed({box("a", 20), box("b", 80), box("c", 10)}), (QStringList{"a b", "c"}));
}

void TestManualPages::aShortChapterMayBeShort()
{
    const auto chapter = heading("h");
    chapter->startsPage = true;
    QCOMPARE(flowed({box("a", 50), box("b", 50), chapter, box("c", 5)}), (QStringList{"a b", "h c"}));
}

void TestManualPages::referencesAndContentsTellTheRightPages()
{
    const LaidOut manual("en");
    QVERIFY(manual.layout.pages.size() > 20);
    const QVector<ContentsEntry> entries = contentsOf(manual.layout.edition);
    QVERIFY(entries.size() > 60);
    int previous = manual.layout.firstPage;
    for (const ContentsEntry &entry : entries) {
        const int page = manual.layout.pageOfAnchor.value(entry.anchor);
        QVERIFY2(page >= previous, qPrintable(entry.title));
        previous = page;
        bool isThere = false;
        for (const PlacedBox &placed : manual.layout.pages.at(page - manual.layout.firstPage).boxes)
            isThere = isThere || placed.box->anchor == entry.anchor;
        QVERIFY2(isThere, qPrintable(entry.title));
    }
}

void TestManualPages::nothingRunsOverAPage()
{
    QFETCH(QString, language);
    const LaidOut manual(language);
    const qreal height = manual.style.textArea().height();
    for (const ManualPage &page : manual.layout.pages) {
        const PlacedBox &last = page.boxes.last();
        QVERIFY2(last.y + last.box->height <= height + 1, qPrintable(page.chapter));
    }
}

void TestManualPages::nothingRunsOverItsColumn()
{
    QFETCH(QString, language);
    const LaidOut manual(language);
    for (int i = 0; i < manual.layout.pages.size(); ++i) {
        for (const PlacedBox &placed : manual.layout.pages.at(i).boxes)
            QVERIFY2(placed.box->excess() <= 1,
                     qPrintable(QStringLiteral("page %1, %2 mm down, by %3 mm")
                                    .arg(manual.layout.firstPage + i)
                                    .arg(placed.y / manual.style.mm(1))
                                    .arg(placed.box->excess() / manual.style.mm(1))));
    }
}

void TestManualPages::noHeadingStandsLastOnItsPage()
{
    QFETCH(QString, language);
    const LaidOut manual(language);
    for (const ManualPage &page : manual.layout.pages) {
        QVERIFY2(!page.boxes.last().box->isHeading, qPrintable(page.chapter));
        QVERIFY2(!page.boxes.last().box->keepWithNext, qPrintable(page.chapter));
    }
}

void TestManualPages::noPageIsNearlyEmpty()
{
    QFETCH(QString, language);
    const LaidOut manual(language);
    const qreal height = manual.style.textArea().height();
    for (int i = 0; i < manual.layout.pages.size(); ++i) {
        const ManualPage &page = manual.layout.pages.at(i);
        QVERIFY2(page.filled() >= height / 5, qPrintable(QStringLiteral("%1, page %2, holds %3 %")
                                                             .arg(page.chapter)
                                                             .arg(manual.layout.firstPage + i)
                                                             .arg(100 * page.filled() / height)));
    }
}

int main(int argc, char **argv)
{
    TestHome home;
    const QGuiApplication application(argc, argv);
    TestManualPages test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_manualpages.moc"

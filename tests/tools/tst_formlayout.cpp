#include "res/Resources.h"
#include "tests/support/TestMain.h"
#include "tests/tools/FormReading.h"
#include "tests/tools/TextExtent.h"

#include <QtTest>

namespace {

/// What the background of a page draws, in units of the page.
struct Background
{
    QVector<QRectF> bars;
    QVector<QRectF> boxes;
    /// Lines from one side to the other between the rows of a panel.
    QVector<QLineF> rows;
};

/// What a page shows on top of it.
struct Placed
{
    QString name;
    QRectF rect;
};

const QRectF sheet(0, 0, 793, 1123);
const QRectF logo(602.33, 83.33, 159.77, 60);
/// Where "Created by Kelmar." is printed, 20 mm from the left on a base line 15 mm from the top.
const QRectF mark(75.6, 43, 125, 18);
const double rightEdge = 755;
/// What a text document leaves free above its text.
const double textMargin = 4;

QRectF rectOf(const QDomElement &element)
{
    return QRectF(element.attribute("x").toDouble(), element.attribute("y").toDouble(),
                  element.attribute("width").toDouble(), element.attribute("height").toDouble());
}

Background readBackground(const QString &path)
{
    Background background;
    QDomDocument drawing;
    drawing.setContent(readFile(path));
    const QVector<QDomElement> shapes = elementsOf(drawing);
    for (const QDomElement &shape : shapes) {
        const QDomElement group = shape.parentNode().toElement();
        if (shape.tagName() == "rect" && group.attribute("fill") == "#1f3346")
            background.bars.append(rectOf(shape));
        else if (shape.tagName() == "rect" && group.attribute("stroke") == "#1f3346")
            background.boxes.append(rectOf(shape));
        const QStringList line = shape.attribute("d").split(' ');
        if (group.attribute("stroke") == "#c3cdd6" && line.size() == 3) {
            const double x = line.at(0).mid(1).toDouble();
            const double y = line.at(1).toDouble();
            background.rows.append(QLineF(x, y, line.at(2).mid(1).toDouble(), y));
        }
    }
    return background;
}

/// The room that an element takes on the printed page: a field all of its own, a label what its text needs.
Placed placed(const QDomElement &element)
{
    Placed result{labelOf(element).isEmpty() ? element.attribute("id") : labelOf(element), rectOf(element)};
    if (!labelOf(element).isEmpty() && !element.hasAttribute("editable")) {
        const TextExtent extent = extentOfBox(element);
        result.rect.setSize(QSizeF(extent.width, extent.height));
    }
    if (element.tagName() == "checkBox")
        result.rect.setLeft(result.rect.left() + element.attribute("boxPosX").toDouble());
    return result;
}

bool liesIn(const QRectF &rect, const QVector<QRectF> &rects)
{
    return std::count_if(rects.begin(), rects.end(),
                         [&rect](const QRectF &other) { return other.contains(rect); }) == 1;
}

bool touches(const QRectF &rect, const QVector<QRectF> &rects)
{
    return std::any_of(rects.begin(), rects.end(),
                       [&rect](const QRectF &other) { return other.intersects(rect); });
}

bool isHeading(const QDomElement &element)
{
    return element.attribute("colour") == "#ffffff";
}

bool isField(const QDomElement &element)
{
    return element.tagName() == "text" && element.hasAttribute("id");
}

bool isPoint(const QDomElement &element)
{
    return element.tagName() == "checkBox" && !element.hasAttribute("fontSize");
}

} // namespace

/// What is printed is read on paper: every label has room, on the drawing below it and beside the others.
class TestFormLayout : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { initResources(); }

    void everyHeadingStandsOnItsBar_data() { everyPage(); }
    void everyHeadingStandsOnItsBar();
    void everyFieldStandsInItsBox_data() { everyPage(); }
    void everyFieldStandsInItsBox();
    void everyPointStandsInItsRow_data() { everyPage(); }
    void everyPointStandsInItsRow();
    void labelsFitTheRoomTheyAreGiven_data() { everyPage(); }
    void labelsFitTheRoomTheyAreGiven();
    void nothingLiesOverAnother_data() { everyPage(); }
    void nothingLiesOverAnother();
    void theDeclarationNeedsNoSmallerLetters_data();
    void theDeclarationNeedsNoSmallerLetters();

private:
    void everyPage();
    void readPage();

    QVector<QDomElement> m_elements;
    Background m_background;
    QDomDocument m_form;
};

void TestFormLayout::everyPage()
{
    QTest::addColumn<QString>("language");
    QTest::addColumn<QString>("suffix");
    QTest::addColumn<int>("page");
    QTest::addColumn<int>("headings");
    QTest::addColumn<int>("fields");
    QTest::addColumn<int>("points");
    for (const QString &language : formLanguages()) {
        QTest::addRow("kelir 1 %s", qPrintable(language)) << language << "kelir" << 0 << 7 << 5 << 12;
        QTest::addRow("kelir 2 %s", qPrintable(language)) << language << "kelir" << 1 << 4 << 0 << 19;
        QTest::addRow("kelvc %s", qPrintable(language)) << language << "kelvc" << 0 << 14 << 17 << 0;
        QTest::addRow("kelchk %s", qPrintable(language)) << language << "kelchk" << 0 << 4 << 0 << 19;
    }
}

void TestFormLayout::readPage()
{
    QFETCH(QString, language);
    QFETCH(QString, suffix);
    QFETCH(int, page);
    m_form = package(language, suffix);
    QDomElement wanted = pageOf(m_form);
    for (int i = 0; i < page; ++i)
        wanted = wanted.nextSiblingElement();
    m_elements = elementsOf(wanted);
    QVERIFY(!m_elements.isEmpty());
    m_background = readBackground(m_elements.takeFirst().attribute("file"));
    QVERIFY(!m_background.bars.isEmpty() && !m_background.boxes.isEmpty());
}

void TestFormLayout::everyHeadingStandsOnItsBar()
{
    QFETCH(int, headings);
    readPage();
    if (QTest::currentTestFailed())
        return;
    QVector<QRectF> bars = m_background.bars;
    QCOMPARE(bars.size(), headings);
    for (const QDomElement &element : qAsConst(m_elements)) {
        const Placed label = placed(element);
        if (!isHeading(element)) {
            QVERIFY2(!touches(label.rect, m_background.bars), qPrintable(label.name));
            continue;
        }
        QVERIFY2(liesIn(label.rect, bars), qPrintable(label.name));
        // No other heading has this bar.
        bars.erase(std::remove_if(bars.begin(), bars.end(),
                                  [&label](const QRectF &bar) { return bar.contains(label.rect); }),
                   bars.end());
    }
    QVERIFY(bars.isEmpty());
}

void TestFormLayout::everyFieldStandsInItsBox()
{
    QFETCH(int, fields);
    readPage();
    if (QTest::currentTestFailed())
        return;
    for (const QDomElement &element : qAsConst(m_elements)) {
        if (!isField(element))
            continue;
        --fields;
        QVERIFY2(liesIn(rectOf(element), m_background.boxes), qPrintable(element.attribute("id")));
        QVERIFY2(!touches(rectOf(element), m_background.bars), qPrintable(element.attribute("id")));
        for (const QLineF &row : qAsConst(m_background.rows))
            QVERIFY(!rectOf(element).contains(QPointF(rectOf(element).center().x(), row.y1())));
    }
    QCOMPARE(fields, 0);
}

void TestFormLayout::everyPointStandsInItsRow()
{
    QFETCH(int, points);
    readPage();
    if (QTest::currentTestFailed())
        return;
    QVector<double> edges;
    for (const QLineF &row : qAsConst(m_background.rows))
        edges.append(row.y1());
    for (const QRectF &bar : qAsConst(m_background.bars))
        edges.append(bar.bottom());
    QMap<double, QString> taken;
    for (const QDomElement &element : qAsConst(m_elements)) {
        if (!isPoint(element))
            continue;
        --points;
        const Placed point = placed(element);
        QVERIFY2(liesIn(point.rect, m_background.boxes), qPrintable(point.name));
        double above = 0.0;
        for (const double edge : qAsConst(edges)) {
            QVERIFY2(edge <= point.rect.top() || edge >= point.rect.bottom(), qPrintable(point.name));
            if (edge <= point.rect.top())
                above = qMax(above, edge);
        }
        QVERIFY2(!taken.contains(above), qPrintable(point.name));
        taken.insert(above, point.name);
    }
    QCOMPARE(points, 0);
}

void TestFormLayout::labelsFitTheRoomTheyAreGiven()
{
    readPage();
    if (QTest::currentTestFailed())
        return;
    int labels = 0;
    for (const QDomElement &element : qAsConst(m_elements)) {
        if (labelOf(element).isEmpty())
            continue;
        ++labels;
        const TextExtent needed = extentOfBox(element);
        const QSizeF room = rectOf(element).size();
        const QString finding = QStringLiteral("%1 x %2, %3 lines, in %4 x %5: %6")
                                    .arg(needed.width)
                                    .arg(needed.height)
                                    .arg(needed.lines)
                                    .arg(room.width())
                                    .arg(room.height())
                                    .arg(labelOf(element));
        QVERIFY2(needed.width <= room.width() && needed.height <= room.height(), qPrintable(finding));
        if (element.hasAttribute("fontSize") && !isField(element))
            QVERIFY2(needed.lines == 1, qPrintable(labelOf(element)));
    }
    QVERIFY(labels > 20);
}

void TestFormLayout::nothingLiesOverAnother()
{
    readPage();
    if (QTest::currentTestFailed())
        return;
    QVector<Placed> all = {{"logo", logo}, {"mark", mark}};
    for (const QDomElement &element : qAsConst(m_elements)) {
        const Placed one = placed(element);
        for (const Placed &other : qAsConst(all))
            QVERIFY2(!one.rect.intersects(other.rect), qPrintable(one.name + " / " + other.name));
        QVERIFY2(sheet.contains(one.rect) && one.rect.right() <= rightEdge, qPrintable(one.name));
        all.append(one);
    }
    for (const QRectF &bar : qAsConst(m_background.bars)) {
        QVERIFY(!bar.intersects(logo) && !bar.intersects(mark));
        QVERIFY(bar.right() <= rightEdge);
    }
    QVERIFY(all.size() > 20);
}

void TestFormLayout::theDeclarationNeedsNoSmallerLetters_data()
{
    QTest::addColumn<QString>("language");
    for (const QString &language : formLanguages())
        QTest::newRow(qPrintable(language)) << language;
}

void TestFormLayout::theDeclarationNeedsNoSmallerLetters()
{
    QFETCH(QString, language);
    const QDomDocument form = package(language, "kelvc");
    const QVector<QDomElement> elements = elementsOf(form);
    const auto declaration = std::find_if(elements.begin(), elements.end(), [](const QDomElement &element) {
        return element.attribute("id") == "design_construction_testing_inspection";
    });
    QVERIFY(declaration != elements.end());
    // A company that adds a line of its own is not to find the letters shrunk either.
    const TextExtent needed = extentOfBox(*declaration);
    const double line = (needed.height - textMargin) / needed.lines;
    QVERIFY(needed.height + line <= rectOf(*declaration).height());
}

KELMAR_TEST_MAIN(TestFormLayout)
#include "tst_formlayout.moc"

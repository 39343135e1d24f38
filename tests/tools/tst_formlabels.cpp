#include "res/Resources.h"
#include "tests/support/TestMain.h"
#include "tests/tools/ArrayTestForm.h"
#include "tests/tools/FormReading.h"
#include "tests/tools/TextExtent.h"

#include <QSet>
#include <QtTest>

namespace {

void everyLanguage()
{
    QTest::addColumn<QString>("language");
    for (const QString &language : formLanguages())
        QTest::newRow(qPrintable(language)) << language;
}

} // namespace

class TestFormLabels : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { initResources(); }

    void everyLabelIsTranslated();
    void labelsFitTheirBoxes_data() { everyLanguage(); }
    void labelsFitTheirBoxes();
    void labelsFitTheirCells_data() { everyLanguage(); }
    void labelsFitTheirCells();
    void labelsKeepOutOfEachOthersWay_data() { everyLanguage(); }
    void labelsKeepOutOfEachOthersWay();
};

void TestFormLabels::everyLabelIsTranslated()
{
    // The symbol of a current and its unit are the same in both languages.
    const QSet<QString> same = {"Isc (A)"};
    const QDomDocument englishForm = package("en", "kelatr_rev3");
    const QVector<QDomElement> english = elementsOf(englishForm);
    const QDomDocument germanForm = package("de", "kelatr_rev3");
    const QVector<QDomElement> german = elementsOf(germanForm);
    QCOMPARE(german.size(), english.size());
    int labels = 0;
    for (int i = 0; i < english.size(); ++i) {
        if (!hasLetters(labelOf(english.at(i))) || same.contains(labelOf(english.at(i))))
            continue;
        ++labels;
        QVERIFY2(labelOf(german.at(i)) != labelOf(english.at(i)), qPrintable(labelOf(english.at(i))));
        QVERIFY(hasLetters(labelOf(german.at(i))));
    }
    QCOMPARE(labels, 40);
}

void TestFormLabels::labelsFitTheirBoxes()
{
    QFETCH(QString, language);
    int checked = 0;
    const QDomDocument elementsForm = package(language, "kelatr_rev3");
    const QVector<QDomElement> elements = elementsOf(elementsForm);
    for (const QDomElement &element : elements) {
        const QString label = labelOf(element);
        if (label.isEmpty() || element.tagName() == "cell")
            continue;
        const TextExtent needed = extentOfBox(element);
        QVERIFY2(needed.lines == 1, qPrintable(label));
        QVERIFY2(needed.width <= element.attribute("width").toDouble(), qPrintable(label));
        QVERIFY2(needed.height <= element.attribute("height").toDouble(), qPrintable(label));
        ++checked;
    }
    QCOMPARE(checked, 9);
}

void TestFormLabels::labelsFitTheirCells()
{
    QFETCH(QString, language);
    const QDomDocument form = package(language, "kelatr_rev3");
    QDomElement cell = pageOf(form).firstChildElement("table").firstChildElement("cell");
    for (const ArrayTestForm::Cell &place : ArrayTestForm::cells) {
        const bool isHead = place.row == 0;
        const double width = ArrayTestForm::columnWidth * qMin(2, place.colspan);
        const double height =
            isHead ? ArrayTestForm::headRowHeight : ArrayTestForm::rowHeight * place.rowspan;
        const TextExtent needed = extentOf(cell.text(), isHead ? 7.7 : 7.0, isHead, width);
        QVERIFY2(needed.lines >= 1 && needed.lines <= place.rowspan, qPrintable(cell.text()));
        QVERIFY2(needed.width <= width, qPrintable(cell.text()));
        QVERIFY2(needed.height <= height, qPrintable(cell.text()));
        cell = cell.nextSiblingElement("cell");
    }
}

void TestFormLabels::labelsKeepOutOfEachOthersWay()
{
    QFETCH(QString, language);
    QVector<QRectF> boxes;
    const QDomDocument elementsForm = package(language, "kelatr_rev3");
    const QVector<QDomElement> elements = elementsOf(elementsForm);
    for (const QDomElement &element : elements) {
        if (element.tagName() != "text" && element.tagName() != "checkBox")
            continue;
        QRectF box(element.attribute("x").toDouble(), element.attribute("y").toDouble(),
                   element.attribute("width").toDouble(), element.attribute("height").toDouble());
        // A field takes all of its room, a label what its text needs, with the symbol to the left of it.
        if (!labelOf(element).isEmpty())
            box.setSize(QSizeF(extentOfBox(element).width, extentOfBox(element).height));
        if (element.tagName() == "checkBox")
            box.setLeft(box.left() + element.attribute("boxPosX").toDouble());
        for (const QRectF &other : qAsConst(boxes))
            QVERIFY2(!box.intersects(other), qPrintable(labelOf(element) + element.attribute("id")));
        boxes.append(box);
        const QRectF logo(602.33, 83.33, 159.77, 60);
        QVERIFY(!box.intersects(logo));
        QVERIFY2(box.right() <= 755, qPrintable(labelOf(element)));
    }
    QCOMPARE(boxes.size(), 16);
}

KELMAR_TEST_MAIN(TestFormLabels)
#include "tst_formlabels.moc"

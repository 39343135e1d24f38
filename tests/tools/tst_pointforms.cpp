#include "res/Resources.h"
#include "tests/support/TestMain.h"
#include "tests/tools/FormReading.h"
#include "tests/tools/PointForms.h"

#include <QRegularExpression>
#include <QSet>
#include <QtTest>

/// The inspection report, the verification certificate and the checklist.
class TestPointForms : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { initResources(); }

    void pagesHaveTheirStyleAndTheirBackgroundFirst_data();
    void pagesHaveTheirStyleAndTheirBackgroundFirst();
    void labelsAndPointsStandInTheirOrder_data() { everyForm(); }
    void labelsAndPointsStandInTheirOrder();
    void fieldsAndOnlyFieldsAreEditable_data() { everyForm(); }
    void fieldsAndOnlyFieldsAreEditable();
    void headingsAndOnlyHeadingsAreWhiteAndBold_data() { everyForm(); }
    void headingsAndOnlyHeadingsAreWhiteAndBold();
    void pointsHaveTheirSymbolBesideThem_data() { everyForm(); }
    void pointsHaveTheirSymbolBesideThem();
    void everyPointIsOneSentence_data() { everyLanguage(); }
    void everyPointIsOneSentence();
    void pointsOfAClauseQuoteIt_data() { everyLanguage(); }
    void pointsOfAClauseQuoteIt();
    void everyLabelIsTranslated_data() { everyForm(); }
    void everyLabelIsTranslated();
    void theDeclarationComesFilled_data();
    void theDeclarationComesFilled();
    void theChecklistsTitleCanBeTypedOver();
    void pristineReportsAreEmptyOverlaysWithTheLogo_data();
    void pristineReportsAreEmptyOverlaysWithTheLogo();

private:
    void everyLanguage();
    void everyForm();
};

namespace {

using PointForms::Form;
using PointForms::Page;

const Form &formNamed(const QString &suffix)
{
    const QVector<Form> &all = PointForms::forms();
    return *std::find_if(all.begin(), all.end(),
                         [&suffix](const Form &form) { return form.suffix == suffix; });
}

QVector<QDomElement> pagesOf(const QDomDocument &form)
{
    QVector<QDomElement> pages;
    for (QDomElement page = pageOf(form); !page.isNull(); page = page.nextSiblingElement())
        pages.append(page);
    return pages;
}

bool isField(const QDomElement &element)
{
    return element.tagName() == "text" && element.hasAttribute("id");
}

/// The points: the check boxes that state what was looked at.
QVector<QDomElement> pointsOf(const QDomDocument &form)
{
    QVector<QDomElement> points;
    const QVector<QDomElement> elements = elementsOf(form);
    for (const QDomElement &element : elements) {
        if (element.tagName() == "checkBox" && !element.attribute("id").startsWith("initial") &&
            !element.attribute("id").startsWith("periodic"))
            points.append(element);
    }
    return points;
}

void insertIfGiven(QMap<QString, QString> &attributes, const QString &name, const QString &value)
{
    if (!value.isEmpty())
        attributes.insert(name, value);
}

void addEveryFormInEveryLanguage()
{
    QTest::addColumn<QString>("language");
    QTest::addColumn<QString>("suffix");
    for (const QString &language : formLanguages()) {
        for (const Form &form : PointForms::forms())
            QTest::addRow("%s %s", qPrintable(form.suffix), qPrintable(language)) << language << form.suffix;
    }
}

} // namespace

void TestPointForms::everyLanguage()
{
    QTest::addColumn<QString>("language");
    for (const QString &language : formLanguages())
        QTest::newRow(qPrintable(language)) << language;
}

void TestPointForms::everyForm()
{
    QTest::addColumn<QString>("suffix");
    for (const Form &form : PointForms::forms())
        QTest::newRow(qPrintable(form.suffix)) << form.suffix;
}

void TestPointForms::pagesHaveTheirStyleAndTheirBackgroundFirst_data()
{
    addEveryFormInEveryLanguage();
}

void TestPointForms::pagesHaveTheirStyleAndTheirBackgroundFirst()
{
    QFETCH(QString, language);
    QFETCH(QString, suffix);
    const Form &expected = formNamed(suffix);
    const QDomDocument form = package(language, suffix);
    QVERIFY(attributesOf(form.documentElement()).isEmpty());
    const QVector<QDomElement> pages = pagesOf(form);
    QCOMPARE(pages.size(), expected.pages.size());
    for (int i = 0; i < pages.size(); ++i) {
        const QString number = QString::number(i + 1);
        QMap<QString, QString> style = {
            {"id", "page" + number}, {"pageType", "A4"}, {"editable", "0"}, {"fontSize", expected.fontSize}};
        insertIfGiven(style, "font", expected.font);
        insertIfGiven(style, "backgroundColour", expected.backgroundColour);
        QMap<QString, QString> attributes = attributesOf(pages.at(i));
        QCOMPARE(attributes.take("pageNumber").toInt(), pages.size() > 1 ? i + 1 : 0);
        QCOMPARE(attributes, style);

        const QDomElement background = pages.at(i).firstChildElement();
        QCOMPARE(background.tagName(), QString("svg"));
        const QMap<QString, QString> picture = {
            {"x", "0"},
            {"y", "0"},
            {"dpi", "90"},
            {"file", resource(language, "backgrounds/" + expected.pages.at(i).background)}};
        QCOMPARE(attributesOf(background), picture);
        QVERIFY(QFile::exists(picture.value("file")));
    }
}

void TestPointForms::labelsAndPointsStandInTheirOrder()
{
    QFETCH(QString, suffix);
    const QVector<QDomElement> pages = pagesOf(package("en", suffix));
    const QVector<Page> &expected = formNamed(suffix).pages;
    QCOMPARE(pages.size(), expected.size());
    for (int i = 0; i < pages.size(); ++i) {
        QStringList outline;
        const QVector<QDomElement> elements = elementsOf(pages.at(i));
        for (const QDomElement &element : elements) {
            if (element.tagName() == "checkBox")
                outline.append('#' + element.attribute("id"));
            else if (element.tagName() == "text" && !isField(element))
                outline.append(labelOf(element));
            else
                QVERIFY2(isField(element) || element.tagName() == "svg", qPrintable(element.tagName()));
        }
        const int own = expected.at(i).outline.indexOf(PointForms::ownWording);
        if (own >= 0) {
            QVERIFY(outline.size() > own);
            QVERIFY2(outline.at(own).endsWith('.'), qPrintable(outline.at(own)));
            outline[own] = PointForms::ownWording;
        }
        QCOMPARE(outline, expected.at(i).outline);
    }
}

void TestPointForms::fieldsAndOnlyFieldsAreEditable()
{
    QFETCH(QString, suffix);
    const QVector<QDomElement> pages = pagesOf(package("en", suffix));
    for (int i = 0; i < pages.size(); ++i) {
        QStringList fields;
        const QVector<QDomElement> elements = elementsOf(pages.at(i));
        for (const QDomElement &element : elements) {
            if (isField(element)) {
                fields.append(element.attribute("id"));
                QCOMPARE(element.attribute("editable"), QString("1"));
            } else if (labelOf(element) != "Client Handover Pack Checklist") {
                QVERIFY2(!element.hasAttribute("editable"), qPrintable(labelOf(element)));
            }
        }
        QCOMPARE(fields, formNamed(suffix).pages.at(i).fields);
    }
}

void TestPointForms::headingsAndOnlyHeadingsAreWhiteAndBold()
{
    QFETCH(QString, suffix);
    const QMap<QString, int> headings = {{"kelir", 11}, {"kelvc", 14}, {"kelchk", 4}};
    int found = 0;
    const QDomDocument form = package("en", suffix);
    const QVector<QDomElement> elements = elementsOf(form);
    for (const QDomElement &element : elements) {
        // The unit in a heading keeps its small letter.
        const QString letters = QString(labelOf(element)).remove("kW");
        if (element.tagName() == "text" && hasLetters(letters) && letters.toUpper() == letters) {
            ++found;
            QCOMPARE(element.attribute("colour"), QString("#ffffff"));
            QCOMPARE(element.attribute("fontWeight"), QString("75"));
            QVERIFY(!element.hasAttribute("id"));
        } else {
            QVERIFY2(!element.hasAttribute("colour"), qPrintable(labelOf(element)));
            QVERIFY2(!element.hasAttribute("fontWeight"), qPrintable(labelOf(element)));
        }
    }
    QCOMPARE(found, headings.value(suffix));
}

void TestPointForms::pointsHaveTheirSymbolBesideThem()
{
    QFETCH(QString, suffix);
    const Form &expected = formNamed(suffix);
    int boxes = 0;
    const QDomDocument form = package("en", suffix);
    const QVector<QDomElement> elements = elementsOf(form);
    for (const QDomElement &element : elements) {
        if (element.tagName() != "checkBox") {
            QVERIFY(!element.hasAttribute("boxPosX"));
            continue;
        }
        ++boxes;
        // The two at the head of the inspection report have larger letters beside them.
        const bool isLarge = element.attribute("id").endsWith("_verification");
        QCOMPARE(element.attribute("boxPosX"), expected.boxPosX);
        QCOMPARE(element.attribute("boxPosY"), isLarge ? QString("3.5") : expected.boxPosY);
        QCOMPARE(element.attribute("boxScale"), expected.boxScale);
        QVERIFY(!element.hasAttribute("checked"));
    }
    const QMap<QString, int> all = {{"kelir", 33}, {"kelvc", 2}, {"kelchk", 19}};
    QCOMPARE(boxes, all.value(suffix));
}

void TestPointForms::everyPointIsOneSentence()
{
    QFETCH(QString, language);
    const QRegularExpression nextSentence("[.!?] [A-Z\u00c4\u00d6\u00dc]");
    QSet<QString> labels;
    for (const QString &suffix : {QString("kelir"), QString("kelchk")}) {
        const QDomDocument form = package(language, suffix);
        const QVector<QDomElement> points = pointsOf(form);
        for (const QDomElement &point : points) {
            const QString label = labelOf(point);
            QVERIFY2(label.at(0).isUpper() && label.endsWith('.'), qPrintable(label));
            QVERIFY2(label.simplified() == label && !label.contains(nextSentence), qPrintable(label));
            QVERIFY2(label.split(' ').size() >= 6, qPrintable(label));
            labels.insert(label);
        }
    }
    // No two points say the same.
    QCOMPARE(labels.size(), 31 + 19);
}

void TestPointForms::pointsOfAClauseQuoteIt()
{
    QFETCH(QString, language);
    QMap<QString, QString> labels;
    const QDomDocument form = package(language, "kelir");
    const QVector<QDomElement> points = pointsOf(form);
    for (const QDomElement &point : points)
        labels.insert(point.attribute("id"), labelOf(point));
    for (const PointForms::Clause &clause : PointForms::clauses)
        QVERIFY2(labels.take(clause.id).endsWith(clause.clause + QString(".")), clause.id);
    QVERIFY(
        labels.take("iec_60364-7-712").contains(language == "de" ? "DIN VDE 0100-712" : "IEC 60364-7-712"));
    for (const QString &label : qAsConst(labels))
        QVERIFY2(!label.contains("712"), qPrintable(label));
}

void TestPointForms::everyLabelIsTranslated()
{
    QFETCH(QString, suffix);
    const QDomDocument englishForm = package("en", suffix);
    const QVector<QDomElement> english = elementsOf(englishForm);
    const QDomDocument germanForm = package("de", suffix);
    const QVector<QDomElement> german = elementsOf(germanForm);
    QCOMPARE(german.size(), english.size());
    int labels = 0;
    for (int i = 0; i < english.size(); ++i) {
        if (!hasLetters(labelOf(english.at(i))))
            continue;
        ++labels;
        QVERIFY2(hasLetters(labelOf(german.at(i))), qPrintable(labelOf(english.at(i))));
        QVERIFY2(labelOf(german.at(i)) != labelOf(english.at(i)), qPrintable(labelOf(english.at(i))));
        // Of the standards' names, German ones have their German form.
        QVERIFY2(!labelOf(german.at(i)).contains("IEC"), qPrintable(labelOf(german.at(i))));
    }
    const QMap<QString, int> all = {{"kelir", 49}, {"kelvc", 23}, {"kelchk", 25}};
    QCOMPARE(labels, all.value(suffix));
}

void TestPointForms::theDeclarationComesFilled_data()
{
    QTest::addColumn<QString>("language");
    QTest::addColumn<QString>("beginning");
    QTest::newRow("English") << "en"
                             << "I/we being the person(s) responsible for the design, construction, "
                                "inspection and testing of the electrical installation";
    QTest::newRow("German") << "de"
                            << "Ich/wir, verantwortlich f\u00fcr Planung, Errichtung, Besichtigung und "
                               "Pr\u00fcfung der oben beschriebenen elektrischen Anlage";
}

void TestPointForms::theDeclarationComesFilled()
{
    QFETCH(QString, language);
    QFETCH(QString, beginning);
    QString declaration;
    const QDomDocument form = package(language, "kelvc");
    const QVector<QDomElement> elements = elementsOf(form);
    for (const QDomElement &element : elements) {
        if (!isField(element))
            continue;
        if (element.attribute("id") == "design_construction_testing_inspection")
            declaration = element.text();
        else
            QVERIFY2(element.text().isEmpty(), qPrintable(element.text()));
    }
    QVERIFY2(declaration.startsWith(beginning), qPrintable(declaration));
    QVERIFY(declaration.size() > beginning.size() + 100);
    QVERIFY(declaration.endsWith('.'));
}

void TestPointForms::theChecklistsTitleCanBeTypedOver()
{
    const QDomDocument form = package("en", "kelchk");
    const QDomElement title = pageOf(form).firstChildElement("text");
    QCOMPARE(labelOf(title), QString("Client Handover Pack Checklist"));
    QCOMPARE(title.attribute("editable"), QString("1"));
    QVERIFY(!title.hasAttribute("id"));
    QVERIFY(!title.nextSiblingElement().hasAttribute("editable"));
}

void TestPointForms::pristineReportsAreEmptyOverlaysWithTheLogo_data()
{
    addEveryFormInEveryLanguage();
}

void TestPointForms::pristineReportsAreEmptyOverlaysWithTheLogo()
{
    QFETCH(QString, language);
    QFETCH(QString, suffix);
    const QDomDocument report = formOf(resource(language, "default." + suffix));
    const QMap<QString, QString> root = {{"resPak", resource(language, suffix + ".pak")}};
    QCOMPARE(attributesOf(report.documentElement()), root);

    const QVector<Page> &expected = formNamed(suffix).pages;
    const QVector<QDomElement> pages = pagesOf(report);
    QCOMPARE(pages.size(), expected.size());
    int pictures = 0;
    for (int i = 0; i < pages.size(); ++i) {
        const QMap<QString, QString> page = {{"id", "page" + QString::number(i + 1)}};
        QCOMPARE(attributesOf(pages.at(i)), page);
        QStringList boxes;
        QStringList fields;
        const QVector<QDomElement> elements = elementsOf(pages.at(i));
        for (const QDomElement &element : elements) {
            QMap<QString, QString> attributes = attributesOf(element);
            const QString id = attributes.take("id");
            if (element.tagName() == "checkBox") {
                boxes.append('#' + id);
                QCOMPARE(attributes, (QMap<QString, QString>{{"checked", "false"}}));
                QVERIFY(element.text().isEmpty());
            } else if (element.tagName() == "text") {
                fields.append(id);
                QVERIFY(attributes.isEmpty());
                QCOMPARE(element.text().isEmpty(), id != "design_construction_testing_inspection");
            } else {
                ++pictures;
                QCOMPARE(element.tagName(), QString("image"));
                const QMap<QString, QString> logo = {
                    {"index", "1"},   {"x", "602.33"},     {"y", "83.33"},    {"width", "159.77"},
                    {"height", "60"}, {"scale", "0.2326"}, {"resizable", "1"}};
                QCOMPARE(attributes, logo);
            }
        }
        QCOMPARE(boxes, expected.at(i).outline.filter(QRegularExpression("^#")));
        QCOMPARE(fields, expected.at(i).fields);
    }
    QCOMPARE(pictures, 1);

    const ReportFileEntries entries = entriesOf(resource(language, "default." + suffix));
    QCOMPARE(entries.size(), 2);
    QCOMPARE(entries.at(1).name, QString("svg"));
    QCOMPARE(entries.at(1).data, readFile(resource(language, "images/logo.svg")));
}

KELMAR_TEST_MAIN(TestPointForms)
#include "tst_pointforms.moc"

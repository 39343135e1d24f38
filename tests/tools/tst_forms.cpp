#include "res/Resources.h"
#include "tests/support/TestMain.h"
#include "tests/tools/ArrayTestForm.h"
#include "tests/tools/FormReading.h"

#include <QSet>
#include <QtTest>

namespace {

/// The array test report in all its revisions.
const QStringList packages = {"kelatr", "kelatr_rev2", "kelatr_rev3"};
const QStringList allPackages = packages + QStringList{"kelir", "kelvc", "kelchk"};

/// What is proved of every form.
struct Form
{
    const char *suffix;
    /// Pages, fields, check boxes and tables that have an id.
    int ids;
};

constexpr Form forms[] = {{"kelatr", 11}, {"kelir", 40}, {"kelvc", 20}, {"kelchk", 20}};

} // namespace

class TestForms : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { initResources(); }

    void thePageHasItsBackgroundFirst_data();
    void thePageHasItsBackgroundFirst();
    void everyItemStandsInItsPlaceAndOrder();
    void headingsAreWhiteAndBold();
    void fieldsAndOnlyFieldsAreEditable();
    void checkBoxesHaveTheirSymbolBesideThem();
    void theTableHasItsGrid();
    void everyLabelCellStandsInItsPlace();
    void theCommentsFieldLiesOverTheLastRowThatHoldsItsLabelOnly_data();
    void theCommentsFieldLiesOverTheLastRowThatHoldsItsLabelOnly();
    void noIdOccursTwice_data();
    void noIdOccursTwice();
    void languagesDifferInLabelsAndTheirRoomOnly_data();
    void languagesDifferInLabelsAndTheirRoomOnly();
    void revisionsDifferInTheirIdsOnly_data();
    void revisionsDifferInTheirIdsOnly();
    void aTemplateHoldsNothingButItsXml_data();
    void aTemplateHoldsNothingButItsXml();
    void thePristineReportIsAnEmptyOverlayWithTheLogo_data();
    void thePristineReportIsAnEmptyOverlayWithTheLogo();
    void everythingInThePristineReportIsFoundInItsTemplate_data();
    void everythingInThePristineReportIsFoundInItsTemplate();
};

namespace {

void everyLanguage()
{
    QTest::addColumn<QString>("language");
    for (const QString &language : formLanguages())
        QTest::newRow(qPrintable(language)) << language;
}

void everyPackage(const QStringList &names)
{
    QTest::addColumn<QString>("language");
    QTest::addColumn<QString>("name");
    for (const QString &language : formLanguages()) {
        for (const QString &name : names)
            QTest::addRow("%s %s", qPrintable(language), qPrintable(name)) << language << name;
    }
}

} // namespace

void TestForms::thePageHasItsBackgroundFirst_data()
{
    everyPackage(packages);
}

void TestForms::thePageHasItsBackgroundFirst()
{
    QFETCH(QString, language);
    QFETCH(QString, name);
    const QDomDocument form = package(language, name);
    QCOMPARE(form.documentElement().tagName(), QString("document"));
    QVERIFY(attributesOf(form.documentElement()).isEmpty());
    QCOMPARE(form.documentElement().elementsByTagName("page").size(), 1);

    const QMap<QString, QString> page = {
        {"id", "page1"}, {"pageType", "A4"}, {"editable", "0"}, {"font", "Microsoft Sans Serif"}};
    QCOMPARE(attributesOf(pageOf(form)), page);

    const QDomElement background = pageOf(form).firstChildElement();
    QCOMPARE(background.tagName(), QString("svg"));
    const QMap<QString, QString> attributes = {
        {"x", "0"},
        {"y", "0"},
        {"dpi", "90"},
        {"file", resource(language, "backgrounds/Array Test Report.svg")}};
    QCOMPARE(attributesOf(background), attributes);
    QVERIFY(QFile::exists(attributes.value("file")));
}

void TestForms::everyItemStandsInItsPlaceAndOrder()
{
    const QDomDocument form = package("en", "kelatr_rev3");
    QDomElement element = pageOf(form).firstChildElement().nextSiblingElement();
    for (const ArrayTestForm::Item &item : ArrayTestForm::items) {
        QCOMPARE(element.tagName(), QString(item.tag));
        QCOMPARE(element.attribute("id"), QString(item.id));
        if (element.tagName() != "table")
            QCOMPARE(element.text(), QString::fromUtf8(item.text));
        QCOMPARE(element.attribute("fontSize"), QString(item.fontSize));
        QCOMPARE(element.attribute("x").toDouble(), item.x);
        QCOMPARE(element.attribute("y").toDouble(), item.y);
        QCOMPARE(element.attribute("width").toDouble(), item.width);
        QCOMPARE(element.attribute("height").toDouble(), item.height);
        element = element.nextSiblingElement();
    }
    QVERIFY(element.isNull());
}

void TestForms::headingsAreWhiteAndBold()
{
    int headings = 0;
    const QDomDocument elementsForm = package("en", "kelatr_rev3");
    const QVector<QDomElement> elements = elementsOf(elementsForm);
    for (const QDomElement &element : elements) {
        const bool isHeading = element.tagName() == "text" && !element.text().isEmpty() &&
                               element.text().toUpper() == element.text();
        if (isHeading) {
            ++headings;
            QCOMPARE(element.attribute("colour"), QString("#ffffff"));
            QCOMPARE(element.attribute("fontWeight"), QString("75"));
            QVERIFY(!element.hasAttribute("id"));
        } else if (element.tagName() != "tableset") {
            QVERIFY2(!element.hasAttribute("colour"), qPrintable(element.text()));
            QVERIFY2(!element.hasAttribute("fontWeight"), qPrintable(element.text()));
        }
    }
    QCOMPARE(headings, 6);
}

void TestForms::fieldsAndOnlyFieldsAreEditable()
{
    const QDomDocument elementsForm = package("en", "kelatr_rev3");
    const QVector<QDomElement> elements = elementsOf(elementsForm);
    for (const QDomElement &element : elements) {
        if (element.tagName() == "text")
            QCOMPARE(element.attribute("editable"), element.hasAttribute("id") ? QString("1") : QString());
        if (element.tagName() == "checkBox")
            QVERIFY(!element.hasAttribute("editable"));
    }
}

void TestForms::checkBoxesHaveTheirSymbolBesideThem()
{
    const QDomDocument form = package("en", "kelatr_rev3");
    const QDomNodeList boxes = form.documentElement().elementsByTagName("checkBox");
    QCOMPARE(boxes.size(), 2);
    for (int i = 0; i < boxes.size(); ++i) {
        const QDomElement box = boxes.at(i).toElement();
        QCOMPARE(box.attribute("boxPosX"), QString("-17"));
        QCOMPARE(box.attribute("boxPosY"), QString("1.5"));
        QCOMPARE(box.attribute("boxScale"), QString("1.2"));
        QVERIFY(!box.hasAttribute("checked"));
    }
}

void TestForms::theTableHasItsGrid()
{
    const QDomDocument form = package("en", "kelatr_rev3");
    const QDomElement table = pageOf(form).firstChildElement("table");
    QCOMPARE(table.attribute("numCols"), QString("8"));
    QCOMPARE(table.attribute("numRows"), QString("26"));
    QCOMPARE(table.attribute("editable"), QString("1"));
    QCOMPARE(table.attribute("font"), QString("Arial"));
    QCOMPARE(table.attribute("padding"), QString("0.5"));

    QVector<QMap<QString, QString>> sets;
    for (QDomElement set = table.firstChildElement("tableset"); !set.isNull();
         set = set.nextSiblingElement("tableset"))
        sets.append(attributesOf(set));
    const QVector<QMap<QString, QString>> expected = {
        {{"col", "0"}, {"size", "100"}, {"editable", "0"}},
        {{"col", "1"}, {"size", "100"}, {"editable", "0"}},
        {{"row", "0"},
         {"size", "19.5"},
         {"backgroundColour", "#000000"},
         {"colour", "#ffffff"},
         {"font", "Microsoft Sans Serif"},
         {"fontSize", "7.7"},
         {"fontWeight", "75"}},
        {{"row", "25"}, {"size", "143.2"}},
    };
    QCOMPARE(sets, expected);
}

void TestForms::everyLabelCellStandsInItsPlace()
{
    const QDomDocument form = package("en", "kelatr_rev3");
    QDomElement cell = pageOf(form).firstChildElement("table").firstChildElement("cell");
    for (const ArrayTestForm::Cell &expected : ArrayTestForm::cells) {
        QCOMPARE(cell.text(), QString::fromUtf8(expected.text));
        QCOMPARE(cell.attribute("row"), QString::number(expected.row));
        QCOMPARE(cell.attribute("col"), QString::number(expected.col));
        QCOMPARE(cell.attribute("rowspan", "1"), QString::number(expected.rowspan));
        QCOMPARE(cell.attribute("colspan", "1"), QString::number(expected.colspan));
        QCOMPARE(cell.attribute("editable"), QString(expected.editable));
        QCOMPARE(cell.attribute("id"), QString(expected.id));
        QVERIFY(!cell.hasAttribute("x") && !cell.hasAttribute("width") && !cell.hasAttribute("fontSize"));
        cell = cell.nextSiblingElement("cell");
    }
    QVERIFY(cell.isNull());
}

void TestForms::theCommentsFieldLiesOverTheLastRowThatHoldsItsLabelOnly_data()
{
    everyPackage(packages);
}

void TestForms::theCommentsFieldLiesOverTheLastRowThatHoldsItsLabelOnly()
{
    QFETCH(QString, language);
    QFETCH(QString, name);
    const QDomDocument form = package(language, name);
    const auto placeOf = [](const QDomElement &element) {
        return QRectF(element.attribute("x").toDouble(), element.attribute("y").toDouble(),
                      element.attribute("width").toDouble(), element.attribute("height").toDouble());
    };
    QDomElement comments;
    QDomElement table;
    for (QDomElement item = pageOf(form).firstChildElement(); !item.isNull();
         item = item.nextSiblingElement()) {
        if (item.attribute("id") == "test_table")
            table = item;
        // What comes later in a form lies on top, and takes the mouse.
        if (item.attribute("id") == "comments" && !table.isNull())
            comments = item;
    }
    const int last = table.attribute("numRows").toInt() - 1;
    double heightOfLast = 0;
    QStringList inLast;
    for (QDomElement part = table.firstChildElement(); !part.isNull(); part = part.nextSiblingElement()) {
        if (part.attribute("row") != QString::number(last))
            continue;
        if (part.tagName() == "tableset")
            heightOfLast = part.attribute("size").toDouble();
        else
            inLast.append(part.attribute("col"));
    }
    QCOMPARE(inLast, QStringList("0"));
    QVERIFY(!comments.isNull());
    QRectF row = placeOf(table);
    row.setTop(row.bottom() - heightOfLast);
    QVERIFY(heightOfLast > 0 && row.contains(placeOf(comments)));
    QCOMPARE(comments.attribute("editable"), QString("1"));
}

void TestForms::noIdOccursTwice_data()
{
    everyPackage(allPackages);
}

void TestForms::noIdOccursTwice()
{
    QFETCH(QString, language);
    QFETCH(QString, name);
    QSet<QString> ids;
    const QDomDocument elementsForm = package(language, name);
    const QVector<QDomElement> elements = elementsOf(elementsForm);
    for (const QDomElement &element : elements) {
        if (!element.hasAttribute("id"))
            continue;
        QVERIFY2(!ids.contains(element.attribute("id")), qPrintable(element.attribute("id")));
        QVERIFY(!element.attribute("id").isEmpty());
        ids.insert(element.attribute("id"));
    }
    QVERIFY(ids.size() >= 11);
}

void TestForms::languagesDifferInLabelsAndTheirRoomOnly_data()
{
    QTest::addColumn<QString>("name");
    for (const QString &name : allPackages)
        QTest::newRow(qPrintable(name)) << name;
}

void TestForms::languagesDifferInLabelsAndTheirRoomOnly()
{
    QFETCH(QString, name);
    const QDomDocument englishForm = package("en", name);
    const QVector<QDomElement> english = elementsOf(englishForm);
    const QDomDocument germanForm = package("de", name);
    const QVector<QDomElement> german = elementsOf(germanForm);
    QCOMPARE(german.size(), english.size());
    for (int i = 0; i < english.size(); ++i) {
        QCOMPARE(german.at(i).tagName(), english.at(i).tagName());
        QCOMPARE(labelOf(german.at(i)).isEmpty(), labelOf(english.at(i)).isEmpty());
        QMap<QString, QString> left = attributesOf(english.at(i));
        QMap<QString, QString> right = attributesOf(german.at(i));
        if (english.at(i).tagName() == "svg") {
            QCOMPARE(right.take("file").replace("reports_de", "reports_en"), left.take("file"));
        } else if (hasLetters(labelOf(english.at(i)))) {
            for (const QString &room : {QString("width"), QString("height")}) {
                QCOMPARE(right.contains(room), left.contains(room));
                left.remove(room);
                right.remove(room);
            }
        } else {
            QCOMPARE(labelOf(german.at(i)), labelOf(english.at(i)));
        }
        QCOMPARE(right, left);
    }
}

void TestForms::revisionsDifferInTheirIdsOnly_data()
{
    QTest::addColumn<QString>("language");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QStringList>("idsOfCells");
    QTest::addColumn<QString>("idOfDate");
    const QStringList six = {"Voc (VDC)", "Isc (ADC)", "Irr (W/m2)", "Viso (V)", "Riso (MOhm)", "Rpe (Ohm)"};
    QStringList seven = six;
    seven.insert(5, "-Riso (MOhm)");
    for (const QString &language : formLanguages()) {
        QTest::addRow("first %s", qPrintable(language)) << language << "kelatr" << QStringList() << "date";
        QTest::addRow("second %s", qPrintable(language)) << language << "kelatr_rev2" << six << "DD/MM/YYYY";
        QTest::addRow("third %s", qPrintable(language)) << language << "kelatr_rev3" << seven << "DD/MM/YYYY";
    }
}

void TestForms::revisionsDifferInTheirIdsOnly()
{
    QFETCH(QString, language);
    QFETCH(QString, name);
    QFETCH(QStringList, idsOfCells);
    QFETCH(QString, idOfDate);
    const QDomDocument currentForm = package(language, "kelatr_rev3");
    const QVector<QDomElement> current = elementsOf(currentForm);
    const QDomDocument elementsForm = package(language, name);
    const QVector<QDomElement> elements = elementsOf(elementsForm);
    QCOMPARE(elements.size(), current.size());

    QStringList found;
    for (int i = 0; i < elements.size(); ++i) {
        QMap<QString, QString> attributes = attributesOf(elements.at(i));
        QMap<QString, QString> expected = attributesOf(current.at(i));
        const QString id = attributes.take("id");
        const QString idNow = expected.take("id");
        QCOMPARE(attributes, expected);
        QCOMPARE(elements.at(i).tagName(), current.at(i).tagName());
        QCOMPARE(labelOf(elements.at(i)), labelOf(current.at(i)));
        if (elements.at(i).tagName() == "cell" && !id.isNull())
            found.append(id);
        if (elements.at(i).tagName() != "cell")
            QCOMPARE(id, idNow == "DD/MM/YYYY" ? idOfDate : idNow);
        else if (!id.isNull())
            QCOMPARE(id, idNow);
    }
    QCOMPARE(found, idsOfCells);
}

void TestForms::aTemplateHoldsNothingButItsXml_data()
{
    everyPackage(allPackages);
}

void TestForms::aTemplateHoldsNothingButItsXml()
{
    QFETCH(QString, language);
    QFETCH(QString, name);
    QCOMPARE(entriesOf(resource(language, name + ".pak")).size(), 1);
    const QDomDocument form = package(language, name);
    QVERIFY(form.documentElement().elementsByTagName("image").isEmpty());
    QVERIFY(form.toByteArray().contains("<page"));
    QVERIFY(!form.toByteArray().contains("<!--"));
}

void TestForms::thePristineReportIsAnEmptyOverlayWithTheLogo_data()
{
    everyLanguage();
}

void TestForms::thePristineReportIsAnEmptyOverlayWithTheLogo()
{
    QFETCH(QString, language);
    QDomDocument expected;
    QVERIFY(
        expected.setContent(QByteArray(R"(<document resPak=":res/reports_%1/kelatr_rev3.pak"><page id="page1">
        <checkBox id="initial" checked="false"/><checkBox id="periodic" checked="false"/>
        <text id="installation_address"/><text id="description_of_work"/><text id="report_ref_id"/>
        <text id="DD/MM/YYYY"/><text id="inspector"/><text id="test_instruments"/>
        <table id="test_table">
        <cell col="2" row="0">1</cell><cell col="3" row="0">2</cell><cell col="4" row="0">3</cell>
        <cell col="5" row="0">4</cell><cell col="6" row="0">5</cell><cell col="7" row="0">6</cell>
        </table><text id="comments"/>
        <image index="1" x="602.33" y="83.33" width="159.77" height="60" scale="0.2326" resizable="1"/>
        </page></document>)")
                                .replace("%1", language.toLatin1())));
    const QDomDocument report = formOf(resource(language, "default.kelatr"));
    const QVector<QDomElement> found = elementsOf(report);
    const QVector<QDomElement> wanted = elementsOf(expected);
    QCOMPARE(found.size(), wanted.size());
    for (int i = 0; i < found.size(); ++i) {
        QCOMPARE(found.at(i).tagName(), wanted.at(i).tagName());
        QCOMPARE(attributesOf(found.at(i)), attributesOf(wanted.at(i)));
        QCOMPARE(labelOf(found.at(i)), labelOf(wanted.at(i)));
    }

    const ReportFileEntries entries = entriesOf(resource(language, "default.kelatr"));
    QCOMPARE(entries.size(), 2);
    QCOMPARE(entries.at(1).name, QString("svg"));
    QCOMPARE(entries.at(1).data, readFile(resource(language, "images/logo.svg")));
}

void TestForms::everythingInThePristineReportIsFoundInItsTemplate_data()
{
    QTest::addColumn<QString>("language");
    QTest::addColumn<QString>("suffix");
    QTest::addColumn<int>("idsOfForm");
    for (const QString &language : formLanguages()) {
        for (const Form &form : forms)
            QTest::addRow("%s %s", form.suffix, qPrintable(language)) << language << form.suffix << form.ids;
    }
}

void TestForms::everythingInThePristineReportIsFoundInItsTemplate()
{
    QFETCH(QString, language);
    QFETCH(QString, suffix);
    QFETCH(int, idsOfForm);
    const QDomDocument report = formOf(resource(language, "default." + suffix));
    const QString templatePath = report.documentElement().attribute("resPak");
    QSet<QString> known;
    const QDomDocument itemsForm = formOf(templatePath);
    const QVector<QDomElement> items = elementsOf(itemsForm);
    for (const QDomElement &item : items)
        known.insert(item.tagName() + ' ' + item.attribute("id"));
    int ids = 0;
    const QVector<QDomElement> elements = elementsOf(report);
    for (const QDomElement &element : elements) {
        if (!element.hasAttribute("id"))
            continue;
        ++ids;
        QVERIFY2(known.contains(element.tagName() + ' ' + element.attribute("id")),
                 qPrintable(element.attribute("id")));
    }
    QCOMPARE(ids, idsOfForm);
}

KELMAR_TEST_MAIN(TestForms)
#include "tst_forms.moc"

#include "tests/support/TestHome.h"
#include "tests/translations/Catalogue.h"
#include "tools/manual/ManualEdition.h"
#include "tools/manual/ManualError.h"

#include <QDirIterator>
#include <QFileInfo>
#include <QRegularExpression>
#include <QSet>
#include <QtTest>

namespace {

const QString manual = QStringLiteral(KELMAR_MANUAL_SOURCE);

/// What stands in a chapter apart from its words: both languages have to agree in it.
QStringList shapeOf(const ManualChapter &chapter, const QString &language)
{
    QStringList shape;
    for (const ManualBlock &block : chapter.blocks) {
        QString line = QStringLiteral("%1 %2 %3 %4")
                           .arg(block.kind)
                           .arg(block.level)
                           .arg(block.marker)
                           .arg(block.percent);
        if (!block.rows.isEmpty())
            line += QStringLiteral(" %1 x %2").arg(block.rows.size()).arg(block.rows.first().size());
        line += ' ' + QString(block.file).replace("/images/" + language + '/', "/images/");
        shape.append(line);
    }
    return shape;
}

QVector<ManualRun> runsOf(const ManualEdition &edition)
{
    QVector<ManualRun> runs;
    for (const ManualChapter &chapter : edition.chapters) {
        for (const ManualBlock &block : chapter.blocks) {
            runs += block.text;
            for (const QVector<ManualText> &row : block.rows) {
                for (const ManualText &cell : row)
                    runs += cell;
            }
        }
    }
    return runs;
}

/// A text of the program as the manual may name it: without what marks an accelerator, without the full stop
/// and what follows it, without the points or the colon behind it.
QStringList namesOf(const QString &text)
{
    const QString unmarked = QString(text).remove('&').trimmed();
    const QString plain = QString(unmarked).remove(QRegularExpression("[. :]+$"));
    const QString first = plain.section(". ", 0, 0);
    return {text, unmarked, plain, first, first + '.', plain.section('\n', 0, 0)};
}

/// Does a text of the program, with anything in the places of its values, read so? Three points stand for a
/// value in the manual, too.
bool reads(const QString &text, const QString &named)
{
    if (namesOf(text).contains(named))
        return true;
    // A text of nothing but values would read like anything.
    if (!text.contains('%') || !text.contains(QRegularExpression("[[:alpha:]]{4}")))
        return false;
    QString pattern = QRegularExpression::escape(text.section('\n', 0, 0));
    pattern.replace(QRegularExpression("\\\\%\\d"), ".+");
    const QString whole = QRegularExpression::anchoredPattern(pattern);
    const QString begun = '^' + QRegularExpression::escape(named).replace("\\.\\.\\.", ".+");
    return QRegularExpression(whole).match(named).hasMatch() ||
           (named.contains("...") && QRegularExpression(begun).match(text).hasMatch());
}

QString refusal(const QString &folder)
{
    try {
        readManualEdition(folder);
    } catch (const ManualError &error) {
        return QString::fromUtf8(error.what());
    }
    return {};
}

} // namespace

class TestManualSource : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void headingsItemsNotesAndListingsAreTold();
    void aPictureAloneIsAFigureAndInALineAnIcon();
    void cellsOfATableKeepTheirStyles();
    void slugsAreThoseOfTheServersThatShowTheSource();
    void whatIsWrongStopsTheBuild_data();
    void whatIsWrongStopsTheBuild();
    void linksLeadToChaptersAndHeadings();

    void bothLanguagesHaveTheSameChaptersAndPictures();
    void everyPictureIsShownAndEveryOneShownIsThere();
    void picturesTellTheirSize();
    void picturesAreAsHighInBothLanguages();
    void whatIsSetInBoldStandsOnTheScreen_data();
    void whatIsSetInBoldStandsOnTheScreen();

private:
    QString m_folder;
};

/// A small edition that can be read.
void TestManualSource::init()
{
    m_folder = TestHome::instance()->path("manual/xx");
    QDir(m_folder).removeRecursively();
    writeFile(m_folder + "/words.ini", "title=T\nsubtitle=S\ncontents=C\npage=p.\nfigure=F\nversion=V\n");
    writeFile(m_folder + "/01-one.md", "# One\n\n## Part *two*\n\nText\n");
    writeFile(m_folder + "/picture.svg", "<svg xmlns=\"http://www.w3.org/2000/svg\"/>");
}

void TestManualSource::headingsItemsNotesAndListingsAreTold()
{
    writeFile(m_folder + "/01-one.md",
              "# One\n\nSome `F2` and **Save** and *so*.\n\n- a\n  - b\n\n1. c\n2. d\n\n   e\n\n"
              "> Mind\n> this\n\n```\nfirst\nsecond\n```\n");
    const ManualChapter chapter = readManualChapter(m_folder + "/01-one.md");
    QCOMPARE(chapter.title(), QString("One"));
    QStringList told;
    for (const ManualBlock &block : chapter.blocks)
        told.append(
            QString("%1/%2/%3/%4").arg(block.kind).arg(block.level).arg(block.marker, plainText(block.text)));
    const QString bullet(QChar(0x2022));
    QCOMPARE(told, (QStringList{"0/1//One", "1/0//Some F2 and Save and so.", "2/1/" + bullet + "/a",
                                "2/2/" + bullet + "/b", "2/1/1./c", "2/1/2./d", "2/1//e", "3/0//Mind this",
                                QString("4/0//first") + QChar(QChar::LineSeparator) + "second"}));
    const ManualText text = chapter.blocks.at(1).text;
    QCOMPARE(text.size(), 7);
    QVERIFY(text.at(1).literal && !text.at(1).strong);
    QVERIFY(text.at(3).strong && !text.at(3).literal);
    QVERIFY(text.at(5).emphasis);
    QVERIFY(!text.at(0).literal && !text.at(0).strong && !text.at(0).emphasis);
}

void TestManualSource::aPictureAloneIsAFigureAndInALineAnIcon()
{
    writeFile(m_folder + "/01-one.md",
              "# One\n\n![Caption](picture.svg \"60%\")\n\nPress ![Save](picture.svg) **Save**.\n");
    const ManualChapter chapter = readManualChapter(m_folder + "/01-one.md");
    QCOMPARE(chapter.blocks.size(), 3);
    const ManualBlock figure = chapter.blocks.at(1);
    QCOMPARE(int(figure.kind), int(ManualBlock::Picture));
    QCOMPARE(figure.file, m_folder + "/picture.svg");
    QCOMPARE(figure.percent, 60);
    QCOMPARE(plainText(figure.text), QString("Caption"));
    QCOMPARE(chapter.blocks.at(2).text.at(1).icon, m_folder + "/picture.svg");
}

void TestManualSource::cellsOfATableKeepTheirStyles()
{
    writeFile(m_folder + "/01-one.md",
              "# One\n\n| Keys | Command |\n|---|---|\n| `F2` | **Rename** |\n| | x |\n");
    const ManualChapter chapter = readManualChapter(m_folder + "/01-one.md");
    QCOMPARE(chapter.blocks.size(), 2);
    const auto rows = chapter.blocks.at(1).rows;
    QCOMPARE(rows.size(), 3);
    QCOMPARE(plainText(rows.at(0).at(1)), QString("Command"));
    QVERIFY(rows.at(1).at(0).first().literal);
    QVERIFY(rows.at(1).at(1).first().strong);
    QVERIFY(rows.at(2).at(0).isEmpty());
}

void TestManualSource::slugsAreThoseOfTheServersThatShowTheSource()
{
    QCOMPARE(headingSlug("Undo and redo"), QString("undo-and-redo"));
    QCOMPARE(headingSlug("Die Sprache ändern"), QString("die-sprache-ändern"));
    QCOMPARE(headingSlug("What? \"Keys\", here (F2)"), QString("what-keys-here-f2"));
}

void TestManualSource::whatIsWrongStopsTheBuild_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("told");
    QTest::newRow("link to no chapter")
        << "01-one.md" << QByteArray("# One\n\n[a](02-two.md)\n") << "01-one.md: the link \"02-two.md\"";
    QTest::newRow("link to no heading")
        << "01-one.md" << QByteArray("# One\n\n[a](#part-three)\n") << "the link \"#part-three\"";
    QTest::newRow("link in a table") << "01-one.md" << QByteArray("# One\n\n| a |\n|---|\n| [b](#c) |\n")
                                     << "the link \"#c\"";
    QTest::newRow("missing picture") << "01-one.md" << QByteArray("# One\n\n![A](b.png)\n") << "b.png";
    QTest::newRow("missing icon") << "01-one.md" << QByteArray("# One\n\nx ![A](b.svg)\n") << "b.svg";
    QTest::newRow("picture without a caption")
        << "01-one.md" << QByteArray("# One\n\n![ ](picture.svg \"0%\")\n") << "caption";
    QTest::newRow("no heading at the beginning")
        << "01-one.md" << QByteArray("Text\n\n# One\n") << "01-one.md";
    QTest::newRow("heading that is there twice")
        << "01-one.md" << QByteArray("# One\n\nText\n\n## One!\n") << "two headings";
    QTest::newRow("empty chapter") << "01-one.md" << QByteArray() << "01-one.md";
    QTest::newRow("missing word") << "words.ini" << QByteArray("title=T\n") << "subtitle";
}

void TestManualSource::whatIsWrongStopsTheBuild()
{
    QFETCH(QString, file);
    QFETCH(QByteArray, content);
    QFETCH(QString, told);
    QCOMPARE(refusal(m_folder), QString());
    writeFile(m_folder + '/' + file, content);
    const QString why = refusal(m_folder);
    QVERIFY2(why.contains(told), qPrintable(why));
}

void TestManualSource::linksLeadToChaptersAndHeadings()
{
    const ManualEdition edition = readManualEdition(m_folder);
    QCOMPARE(resolvedLink(edition, "01-one.md", "01-one.md"), QString("01-one.md#one"));
    QCOMPARE(resolvedLink(edition, "01-one.md", "#part-two"), QString("01-one.md#part-two"));
    QCOMPARE(resolvedLink(edition, "01-one.md", "01-one.md#part-two"), QString("01-one.md#part-two"));
    QCOMPARE(resolvedLink(edition, "01-one.md", "#part"), QString());
}

void TestManualSource::bothLanguagesHaveTheSameChaptersAndPictures()
{
    const ManualEdition english = readManualEdition(manual + "/en");
    const ManualEdition german = readManualEdition(manual + "/de");
    QCOMPARE(english.language, QString("en"));
    QCOMPARE(german.language, QString("de"));
    QVERIFY(english.chapters.size() > 10);
    QCOMPARE(english.chapters.size(), german.chapters.size());
    for (int i = 0; i < english.chapters.size(); ++i) {
        QCOMPARE(english.chapters.at(i).fileName, german.chapters.at(i).fileName);
        QCOMPARE(shapeOf(english.chapters.at(i), "en"), shapeOf(german.chapters.at(i), "de"));
    }
}

void TestManualSource::everyPictureIsShownAndEveryOneShownIsThere()
{
    for (const QString &language : {QStringLiteral("en"), QStringLiteral("de")}) {
        QSet<QString> shown;
        const ManualEdition edition = readManualEdition(manual + '/' + language);
        for (const ManualChapter &chapter : edition.chapters) {
            for (const ManualBlock &block : chapter.blocks) {
                if (!block.file.isEmpty())
                    shown.insert(block.file);
            }
        }
        QSet<QString> there;
        QDirIterator files(manual + "/images/" + language, QDir::Files);
        while (files.hasNext())
            there.insert(QDir::cleanPath(files.next()));
        QCOMPARE(shown, there);
        QVERIFY(there.size() > 20);
    }
}

/// The builder shows pictures as large as their resolution says.
void TestManualSource::picturesTellTheirSize()
{
    QDirIterator files(manual + "/images", QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        const QString file = files.next();
        const QImage picture(file);
        QVERIFY2(!picture.isNull(), qPrintable(file));
        QVERIFY2(qAbs(picture.dotsPerMeterX() * 0.0254 - 192) < 1, qPrintable(file));
        QVERIFY2(QFileInfo(file).size() < 250 * 1024, qPrintable(file));
    }
}

/// They show the same windows at the same sizes; where one is lower, a part of it was cut off.
void TestManualSource::picturesAreAsHighInBothLanguages()
{
    QDirIterator files(manual + "/images/en", QDir::Files);
    while (files.hasNext()) {
        const QImage english(files.next());
        const QImage german(manual + "/images/de/" + files.fileName());
        QVERIFY2(english.height() == german.height(), qPrintable(files.fileName()));
    }
}

void TestManualSource::whatIsSetInBoldStandsOnTheScreen_data()
{
    QTest::addColumn<QString>("language");
    QTest::newRow("English") << "en";
    QTest::newRow("German") << "de";
}

void TestManualSource::whatIsSetInBoldStandsOnTheScreen()
{
    QFETCH(QString, language);
    const Catalogue catalogue(KELMAR_TRANSLATIONS "/kelmar_" + language + ".ts");
    QVERIFY2(catalogue.error().isEmpty(), qPrintable(catalogue.error()));
    QStringList texts;
    for (const CatalogueEntry &entry : catalogue.entries())
        texts.append(entry.translation);
    // The toolkit's buttons; a language as the chooser has it; the tab that keeps its name.
    texts += language == "de" ? QStringList{"OK", "Abbrechen", "Ja", "Nein", "Speichern"}
                              : QStringList{"OK", "Cancel", "Yes", "No", "Save"};
    texts += QStringList{"Cancel", "German", "Search Results"};
    texts.removeDuplicates();

    QStringList unknown;
    const ManualEdition edition = readManualEdition(manual + '/' + language);
    for (const ManualRun &run : runsOf(edition)) {
        const QString named = run.text.trimmed();
        if (!run.strong || run.literal || named.isEmpty())
            continue;
        if (std::none_of(texts.cbegin(), texts.cend(),
                         [&](const QString &text) { return reads(text, named); }))
            unknown.append(named);
    }
    // The headings of tables are bold by themselves.
    for (const ManualChapter &chapter : edition.chapters) {
        for (const ManualBlock &block : chapter.blocks) {
            for (int column = 0; !block.rows.isEmpty() && column < block.rows.first().size(); ++column)
                unknown.removeOne(plainText(block.rows.first().at(column)));
        }
    }
    QVERIFY2(unknown.isEmpty(), qPrintable(unknown.join('\n')));
}

int main(int argc, char **argv)
{
    TestHome home;
    const QGuiApplication application(argc, argv);
    TestManualSource test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_manualsource.moc"

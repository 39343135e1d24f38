#include "report/GraphicalReportDocument.h"

#include "app/document/ZoomableGraphicsView.h"
#include "report/ReportScene.h"
#include "report/items/GraphicsTextItem.h"
#include "report/items/ReportCheckBox.h"
#include "report/items/ReportPage.h"
#include "report/items/ReportTable.h"
#include "report/items/ReportTableCell.h"
#include "res/Resources.h"
#include "tests/report/FormEntries.h"
#include "tests/support/TestMain.h"

#include <QUndoStack>

#include <functional>
#include <memory>

namespace {

/// The report item that has the keyboard, itself or through its text editor.
AbstractReportItem *focused(const GraphicalReportDocument &document)
{
    QGraphicsItem *item = document.scene()->focusItem();
    while (item && !isReportItem(item))
        item = item->parentItem();
    return static_cast<AbstractReportItem *>(item);
}

QList<AbstractReportItem *> itemsInOrder(const QGraphicsItem *parent)
{
    QList<AbstractReportItem *> items;
    const QList<QGraphicsItem *> children = parent->childItems();
    for (QGraphicsItem *child : children) {
        if (isReportItem(child))
            items.append(static_cast<AbstractReportItem *>(child));
    }
    return items;
}

/// What a user has filled in, in the order of the pages.
QStringList contents(const GraphicalReportDocument &document)
{
    QStringList all;
    for (const ReportPage *page : document.scene()->pages()) {
        for (AbstractReportItem *item : itemsInOrder(page)) {
            if (auto *table = qobject_cast<ReportTable *>(item)) {
                for (const ReportTableCell *cell : table->cells())
                    all.append(cell->plainText());
            } else if (auto *checkBox = qobject_cast<ReportCheckBox *>(item)) {
                all.append(checkBox->isChecked() ? QStringLiteral("yes") : QStringLiteral("no"));
            } else if (auto *text = qobject_cast<ReportText *>(item)) {
                // What has no id belongs to the form: the checklist's title can be typed over for a printout,
                // but comes back with the form.
                if (!text->reportId().isEmpty())
                    all.append(text->plainText());
            }
        }
    }
    return all;
}

const ReportTable *testTable(const GraphicalReportDocument &document)
{
    return qobject_cast<ReportTable *>(document.scene()->itemById(QStringLiteral("test_table")));
}

/// Fields and cells whose text had to be made smaller.
QStringList shrunkIn(const GraphicalReportDocument &document)
{
    QStringList shrunk;
    const QList<QGraphicsItem *> all = document.scene()->items();
    for (QGraphicsItem *item : all) {
        const auto *text = dynamic_cast<ReportText *>(item);
        if (text && text->textItem()->scale() < 1)
            shrunk.append(text->reportId() + QStringLiteral(": ") + text->plainText());
    }
    return shrunk;
}

/// A copy of a pristine form, open in a window that has the keyboard.
struct Desk
{
    explicit Desk(const QString &path) : document(path)
    {
        document.resize(900, 1200);
        document.show();
        QApplication::setActiveWindow(&document);
        document.view()->setFocus();
    }
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QTest::keyClick(document.view(), key, modifiers);
    }
    void type(const QString &text)
    {
        const QStringList lines = text.split(QLatin1Char('\n'));
        for (int i = 0; i < lines.size(); ++i) {
            if (i > 0)
                press(Qt::Key_Return);
            // Letters beyond ASCII have no key that keyClicks() would know.
            for (const QChar letter : lines.at(i))
                QTest::sendKeyEvent(QTest::Click, document.view(), Qt::Key_unknown, letter, Qt::NoModifier);
        }
    }

    GraphicalReportDocument document;
};

} // namespace

/// Every form as somebody fills it in who has no mouse but for the table.
class TestFormsByKeys : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { initResources(); }
    void everyFormIsWalkedByTabAndBack_data() { forms(); }
    void everyFormIsWalkedByTabAndBack();
    void everyFormIsFilledSavedReadUndoneAndRedone_data() { forms(); }
    void everyFormIsFilledSavedReadUndoneAndRedone();
    void theEntriesOfAJobFitTheirFieldsUnshrunk_data() { forms(); }
    void theEntriesOfAJobFitTheirFieldsUnshrunk();

private:
    using FieldEntry = std::function<QString(const ReportText &field)>;
    using CellEntry = std::function<QString(int row, int column)>;

    static void forms();
    static QString copyOf(const QString &pristine);
    static void fillFields(Desk &desk, const FieldEntry &entry);
    static void fillTable(Desk &desk, const ReportTable *table, const CellEntry &entry);
};

void TestFormsByKeys::forms()
{
    QTest::addColumn<QString>("pristine");
    for (const char *folder : {"reports_en", "reports_de"}) {
        for (const char *suffix : {"kelir", "kelatr", "kelvc", "kelchk"}) {
            const QString path =
                QStringLiteral(":res/%1/default.%2").arg(QLatin1String(folder), QLatin1String(suffix));
            QTest::newRow(qPrintable(path)) << path;
        }
    }
}

QString TestFormsByKeys::copyOf(const QString &pristine)
{
    const QString path = TestHome::instance()->path(QStringLiteral("form.")) + QFileInfo(pristine).suffix();
    writeFile(path, readFile(pristine));
    return path;
}

void TestFormsByKeys::everyFormIsWalkedByTabAndBack()
{
    QFETCH(QString, pristine);
    Desk desk(copyOf(pristine));
    QVERIFY(desk.document.isValid());
    QVERIFY(QTest::qWaitForWindowActive(&desk.document, patience));

    QList<AbstractReportItem *> expected;
    for (const ReportPage *page : desk.document.scene()->pages()) {
        for (AbstractReportItem *item : itemsInOrder(page)) {
            if (item->isTabStop())
                expected.append(item);
        }
    }
    QVERIFY(expected.size() > 5);
    QList<AbstractReportItem *> forward;
    for (int i = 0; i <= expected.size(); ++i) {
        desk.press(Qt::Key_Tab);
        forward.append(focused(desk.document));
    }
    QCOMPARE(forward.takeLast(), expected.first());
    QCOMPARE(forward, expected);
    QList<AbstractReportItem *> back;
    for (int i = 0; i < expected.size(); ++i) {
        desk.press(Qt::Key_Backtab, Qt::ShiftModifier);
        back.prepend(focused(desk.document));
    }
    QCOMPARE(back, expected);
}

void TestFormsByKeys::fillFields(Desk &desk, const FieldEntry &entry)
{
    desk.press(Qt::Key_Tab);
    AbstractReportItem *const first = focused(desk.document);
    QVERIFY(first);
    do {
        if (qobject_cast<ReportCheckBox *>(focused(desk.document)))
            desk.press(Qt::Key_Space);
        else
            desk.type(entry(*qobject_cast<ReportText *>(focused(desk.document))));
        desk.press(Qt::Key_Tab);
    } while (focused(desk.document) != first);
}

void TestFormsByKeys::fillTable(Desk &desk, const ReportTable *table, const CellEntry &entry)
{
    for (int col = 0; col < table->columnCount(); ++col) {
        // From the first cell that can be filled, Return leads down the column.
        int row = 0;
        while (row < table->rowCount() && !(table->cellAt(col, row) && table->cellAt(col, row)->isEditable()))
            ++row;
        if (row == table->rowCount())
            continue;
        const QPointF place = table->cellAt(col, row)->sceneBoundingRect().center();
        desk.document.view()->ensureVisible(QRectF(place, QSizeF(1, 1)));
        QTest::mouseClick(desk.document.view()->viewport(), Qt::LeftButton, Qt::NoModifier,
                          desk.document.view()->mapFromScene(place));
        for (; row < table->rowCount() && table->cellAt(col, row) && table->cellAt(col, row)->isEditable();
             ++row) {
            QCOMPARE(focused(desk.document), table->cellAt(col, row));
            desk.type(entry(row, col));
            desk.press(Qt::Key_Return);
        }
    }
}

void TestFormsByKeys::everyFormIsFilledSavedReadUndoneAndRedone()
{
    QFETCH(QString, pristine);
    const QString path = copyOf(pristine);
    Desk desk(path);
    QVERIFY(QTest::qWaitForWindowActive(&desk.document, patience));
    desk.document.save();
    const QByteArray savedEmpty = readFile(path);
    const QStringList empty = contents(desk.document);

    int count = 0;
    fillFields(desk, [&count](const ReportText &) { return QStringLiteral("Entry %1").arg(++count); });
    if (const ReportTable *table = testTable(desk.document))
        fillTable(desk, table, [](int row, int col) { return QStringLiteral("%1/%2").arg(col).arg(row); });
    const QStringList filled = contents(desk.document);
    int changed = 0;
    for (int i = 0; i < filled.size(); ++i)
        changed += filled.at(i) != empty.at(i) ? 1 : 0;
    QVERIFY(changed > 5);
    desk.document.save();
    const QByteArray savedFilled = readFile(path);
    {
        const GraphicalReportDocument again(path);
        QVERIFY(again.isValid());
        QCOMPARE(contents(again), filled);
    }

    while (desk.document.undoStack()->canUndo())
        desk.document.undo();
    QCOMPARE(contents(desk.document), empty);
    desk.document.save();
    QCOMPARE(readFile(path), savedEmpty);
    while (desk.document.undoStack()->canRedo())
        desk.document.redo();
    QCOMPARE(contents(desk.document), filled);
    desk.document.save();
    QCOMPARE(readFile(path), savedFilled);
}

void TestFormsByKeys::theEntriesOfAJobFitTheirFieldsUnshrunk()
{
    QFETCH(QString, pristine);
    const QString language = pristine.section(QLatin1Char('/'), 1, 1).section(QLatin1Char('_'), 1);
    const QString path = copyOf(pristine);
    Desk desk(path);
    QVERIFY(QTest::qWaitForWindowActive(&desk.document, patience));
    // What comes filled, as the declaration does, stays as it is.
    fillFields(desk, [&language](const ReportText &field) {
        const QString entry = formEntry(field.reportId(), language);
        return entry.isEmpty() ? field.plainText() : entry;
    });
    if (const ReportTable *table = testTable(desk.document))
        fillTable(desk, table,
                  [&language](int row, int column) { return formCellEntry(row, column, language); });
    QCOMPARE(shrunkIn(desk.document), QStringList());
    for (const QString &content : contents(desk.document))
        QVERIFY2(!content.isEmpty() && content != QStringLiteral("no"), qPrintable(content));
    desk.document.save();
    const QString folder = qEnvironmentVariable("KELMAR_FILLED_FORMS");
    if (!folder.isEmpty())
        writeFile(folder + QLatin1Char('/') + language + QLatin1String("/filled.") + QFileInfo(path).suffix(),
                  readFile(path));
}

KELMAR_TEST_MAIN(TestFormsByKeys)
#include "tst_formsbykeys.moc"

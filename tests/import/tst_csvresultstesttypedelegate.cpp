#include "import/CsvResultsTestTypeDelegate.h"
#include "tests/support/TestMain.h"

#include <QComboBox>
#include <QPainter>
#include <QSignalSpy>
#include <QStandardItemModel>
#include <QtTest>

class TestCsvResultsTestTypeDelegate : public QObject
{
    Q_OBJECT

private slots:
    void onlyInsulationTestsHaveAnEditor_data();
    void onlyInsulationTestsHaveAnEditor();
    void editorShowsTheSignInTheModel_data();
    void editorShowsTheSignInTheModel();
    void editorStoresTheChosenSign();
    void choosingCommitsAtOnceAndFillingTheEditorDoesNot();
    void editorCoversItsCell();
    void cellShowsTheTestInWords_data();
    void cellShowsTheTestInWords();
    void coloursOfTheModelAreKept();
};

namespace {

/// A model of one cell that holds a kind of test.
struct OneCell
{
    explicit OneCell(const QString &type) { model.setItem(0, 0, new QStandardItem(type)); }
    QModelIndex index() const { return model.index(0, 0); }

    QStandardItemModel model;
};

/// Notes the text that would be drawn.
class SpyDelegate : public CsvResultsTestTypeDelegate
{
public:
    QString painted(const QModelIndex &index) const
    {
        QImage image(200, 20, QImage::Format_RGB32);
        QPainter painter(&image);
        QStyleOptionViewItem option;
        option.rect = image.rect();
        paint(&painter, option, index);
        return m_text;
    }
    QColor colour() const { return m_colour; }

protected:
    void drawDisplay(QPainter *, const QStyleOptionViewItem &option, const QRect &,
                     const QString &text) const override
    {
        m_text = text;
        m_colour = option.palette.color(QPalette::Text);
    }

private:
    mutable QString m_text;
    mutable QColor m_colour;
};

} // namespace

void TestCsvResultsTestTypeDelegate::onlyInsulationTestsHaveAnEditor_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<bool>("editable");

    QTest::newRow("continuity") << "1" << false;
    QTest::newRow("auto test") << "2" << false;
    QTest::newRow("positive") << "4" << true;
    QTest::newRow("negative") << "8" << true;
    QTest::newRow("curve") << "16" << false;
    QTest::newRow("both bits") << "12" << false;
    QTest::newRow("empty") << "" << false;
    QTest::newRow("word") << "four" << false;
}

void TestCsvResultsTestTypeDelegate::onlyInsulationTestsHaveAnEditor()
{
    QFETCH(QString, type);
    QFETCH(bool, editable);
    const OneCell cell(type);
    const CsvResultsTestTypeDelegate delegate;
    QWidget parent;
    QWidget *editor = delegate.createEditor(&parent, QStyleOptionViewItem(), cell.index());
    QCOMPARE(editor != nullptr, editable);
    if (editable) {
        const auto *box = qobject_cast<QComboBox *>(editor);
        QVERIFY(box);
        QCOMPARE(box->count(), 2);
        QCOMPARE(box->itemText(0), QStringLiteral("Positive-earth insulation"));
        QCOMPARE(box->itemText(1), QStringLiteral("Negative-earth insulation"));
    }
}

void TestCsvResultsTestTypeDelegate::editorShowsTheSignInTheModel_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<int>("entry");

    QTest::newRow("positive") << "4" << 0;
    QTest::newRow("negative") << "8" << 1;
    QTest::newRow("anything else") << "2" << 0;
    QTest::newRow("empty") << "" << 0;
}

void TestCsvResultsTestTypeDelegate::editorShowsTheSignInTheModel()
{
    QFETCH(QString, type);
    QFETCH(int, entry);
    const OneCell editable(QStringLiteral("4"));
    const OneCell cell(type);
    const CsvResultsTestTypeDelegate delegate;
    QWidget parent;
    auto *box =
        static_cast<QComboBox *>(delegate.createEditor(&parent, QStyleOptionViewItem(), editable.index()));
    box->setCurrentIndex(1 - entry);
    delegate.setEditorData(box, cell.index());
    QCOMPARE(box->currentIndex(), entry);
}

void TestCsvResultsTestTypeDelegate::editorStoresTheChosenSign()
{
    OneCell cell(QStringLiteral("4"));
    const CsvResultsTestTypeDelegate delegate;
    QWidget parent;
    auto *box =
        static_cast<QComboBox *>(delegate.createEditor(&parent, QStyleOptionViewItem(), cell.index()));
    box->setCurrentIndex(1);
    delegate.setModelData(box, &cell.model, cell.index());
    QCOMPARE(cell.index().data(Qt::EditRole).toString(), QStringLiteral("8"));
    box->setCurrentIndex(0);
    delegate.setModelData(box, &cell.model, cell.index());
    QCOMPARE(cell.index().data(Qt::EditRole).toString(), QStringLiteral("4"));
}

void TestCsvResultsTestTypeDelegate::choosingCommitsAtOnceAndFillingTheEditorDoesNot()
{
    const OneCell cell(QStringLiteral("8"));
    const CsvResultsTestTypeDelegate delegate;
    const QSignalSpy commits(&delegate, &QAbstractItemDelegate::commitData);
    QWidget parent;
    auto *box =
        static_cast<QComboBox *>(delegate.createEditor(&parent, QStyleOptionViewItem(), cell.index()));
    delegate.setEditorData(box, cell.index());
    QCOMPARE(box->currentIndex(), 1);
    QCOMPARE(commits.count(), 0);
    box->setCurrentIndex(0);
    QCOMPARE(commits.count(), 1);
    QCOMPARE(commits.at(0).at(0).value<QWidget *>(), box);
}

void TestCsvResultsTestTypeDelegate::editorCoversItsCell()
{
    const CsvResultsTestTypeDelegate delegate;
    QWidget editor;
    QStyleOptionViewItem option;
    option.rect = QRect(10, 20, 300, 40);
    delegate.updateEditorGeometry(&editor, option, QModelIndex());
    QCOMPARE(editor.geometry(), option.rect);
}

void TestCsvResultsTestTypeDelegate::cellShowsTheTestInWords_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<QString>("words");

    QTest::newRow("1") << "1"
                       << "Continuity";
    QTest::newRow("2") << "2"
                       << "AutoTest";
    QTest::newRow("4") << "4"
                       << "Positive-earth insulation";
    QTest::newRow("8") << "8"
                       << "Negative-earth insulation";
    QTest::newRow("16") << "16"
                        << "AutoTest & Curve";
    QTest::newRow("0") << "0"
                       << "Unknown";
    QTest::newRow("3") << "3"
                       << "Unknown";
    QTest::newRow("no number") << "AutoTest"
                               << "Unknown";
    QTest::newRow("empty") << ""
                           << "Unknown";
}

void TestCsvResultsTestTypeDelegate::cellShowsTheTestInWords()
{
    QFETCH(QString, type);
    QFETCH(QString, words);
    const OneCell cell(type);
    const SpyDelegate delegate;
    QCOMPARE(delegate.painted(cell.index()), words);
}

void TestCsvResultsTestTypeDelegate::coloursOfTheModelAreKept()
{
    OneCell cell(QStringLiteral("2"));
    cell.model.setData(cell.index(), QColor(Qt::red), Qt::ForegroundRole);
    const SpyDelegate delegate;
    QCOMPARE(delegate.painted(cell.index()), QStringLiteral("AutoTest"));
    QCOMPARE(delegate.colour(), QColor(Qt::red));
}

KELMAR_TEST_MAIN(TestCsvResultsTestTypeDelegate)
#include "tst_csvresultstesttypedelegate.moc"

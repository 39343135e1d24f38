#include "tests/import/ImportSample.h"

#include "app/core/NumberText.h"
#include "report/ReportScene.h"
#include "report/items/ReportTable.h"
#include "report/items/ReportTableCell.h"
#include "tests/report/ReportSample.h"
#include "tests/support/TestHome.h"

#include <QBuffer>
#include <QtTest>

namespace {

QByteArray localised(QByteArray line)
{
    if (NumberText::decimalMark() == QLatin1Char(','))
        line.replace(',', ';').replace('.', ',');
    return line + "\r\n";
}

} // namespace

SampleResults::SampleResults(const QByteArray &names, const QList<QByteArray> &rows,
                             const QByteArray &serialNumber)
{
    QByteArray bytes =
        localised("PV Tester," + serialNumber + ",V2,2") + localised(names + ",StatusCode,Checksum");
    for (const QByteArray &row : rows)
        bytes += localised(row + ",0,0000");
    QBuffer buffer(&bytes);
    QVERIFY(buffer.open(QIODevice::ReadOnly));
    QVERIFY(m_model.load(&buffer));
    QCOMPARE(m_model.rowCount(), rows.size());
}

QModelIndexList SampleResults::rows(const QList<int> &numbers) const
{
    QModelIndexList indexes;
    for (const int number : numbers)
        indexes << m_model.index(number, 0);
    return indexes;
}

QModelIndexList SampleResults::allRows() const
{
    QModelIndexList indexes;
    for (int row = 0; row < m_model.rowCount(); ++row)
        indexes << m_model.index(row, 0);
    return indexes;
}

QString SampleResults::number(const QString &text)
{
    return QString(text).replace(QLatin1Char('.'), NumberText::decimalMark());
}

SampleReport::SampleReport(const QString &package, const QByteArray &elements, const QString &fileName)
    : m_document(fileOf(QStringLiteral(":res/") + package, elements, fileName))
{
    QVERIFY(m_document.isValid());
}

QString SampleReport::fileOf(const QString &formPath, const QByteArray &elements, const QString &fileName)
{
    const QString path = TestHome::instance()->path(QStringLiteral("projects/") + fileName);
    const QByteArray xml = "<document resPak=\"" + formPath.toUtf8() + "\">" + elements + "</document>";
    writeFile(path, ReportSample::pack(xml));
    return path;
}

ReportTable *SampleReport::table(const char *id) const
{
    auto *table = qobject_cast<ReportTable *>(m_document.scene()->itemById(QLatin1String(id)));
    if (!table)
        QTest::qFail(id, __FILE__, __LINE__);
    return table;
}

QString SampleReport::cell(int col, int row) const
{
    const ReportTableCell *cell = table()->cellAt(col, row);
    return cell ? cell->plainText() : QStringLiteral("no such cell");
}

void SampleReport::setCell(int col, int row, const QString &text)
{
    table()->cellAt(col, row)->setPlainText(text);
}

QStringList SampleReport::measuredColumn(int col) const
{
    QStringList texts;
    for (int row = VocRow; row <= ContinuityRow; ++row)
        texts << cell(col, row);
    return texts;
}

QString SampleReport::text(const char *id) const
{
    const auto *item = qobject_cast<ReportText *>(m_document.scene()->itemById(QLatin1String(id)));
    return item ? item->plainText() : QStringLiteral("no such text");
}

void SampleReport::setText(const char *id, const QString &text)
{
    auto *item = qobject_cast<ReportText *>(m_document.scene()->itemById(QLatin1String(id)));
    QVERIFY2(item, id);
    item->setPlainText(text);
}

QStringList SampleReport::everything() const
{
    QStringList texts;
    const QList<QGraphicsItem *> items = m_document.scene()->items();
    for (QGraphicsItem *item : items) {
        if (const auto *text = dynamic_cast<ReportText *>(item))
            texts << text->plainText();
    }
    return texts;
}

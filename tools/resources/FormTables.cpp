#include "tools/resources/FormTables.h"

#include "tools/resources/ResourceFolder.h"

#include <QStringList>

namespace {

/// The rows of a table, split at tabs. A line that opens with "#" and a blank is a comment.
QVector<QStringList> readTable(const QString &path, int columns)
{
    QVector<QStringList> rows;
    const QStringList lines = QString::fromUtf8(readSource(path)).split(QLatin1Char('\n'));
    for (const QString &line : lines) {
        if (line.isEmpty() || line.startsWith(QLatin1String("# ")))
            continue;
        QStringList row = line.split(QLatin1Char('\t'));
        if (row.size() > columns)
            throw BuildError(QStringLiteral("%1: too many columns: %2").arg(path, line));
        while (row.size() < columns)
            row.append(QString());
        rows.append(row);
    }
    return rows;
}

} // namespace

FormLabels readFormLabels(const QString &path)
{
    FormLabels labels;
    const QVector<QStringList> rows = readTable(path, 4);
    for (const QStringList &row : rows) {
        if (row.at(1).isEmpty() || labels.contains(row.at(0)))
            throw BuildError(QStringLiteral("%1: empty or given twice: %2").arg(path, row.at(0)));
        labels.insert(row.at(0), {row.at(1), row.at(2), row.at(3)});
    }
    return labels;
}

FormRevisions readFormRevisions(const QString &path)
{
    FormRevisions revisions;
    const QVector<QStringList> rows = readTable(path, 3);
    for (const QStringList &row : rows) {
        if (revisions.isEmpty() || revisions.last().package != row.at(0))
            revisions.append({row.at(0), {}});
        if (!row.at(1).isEmpty())
            revisions.last().ids.insert(row.at(1), row.at(2));
    }
    return revisions;
}

FormRevisions revisionsOfForm(const FormRevisions &all, const QString &form)
{
    FormRevisions own;
    for (const FormRevision &revision : all) {
        if (revision.package == form || revision.package.startsWith(form + QLatin1Char('_')))
            own.append(revision);
    }
    if (own.isEmpty())
        own.append({form, {}});
    return own;
}

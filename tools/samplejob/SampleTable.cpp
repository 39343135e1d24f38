#include "tools/samplejob/SampleTable.h"

#include "tools/samplejob/SampleError.h"

#include <QFile>

QVector<QStringList> SampleTable::read(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw SampleError(path + QLatin1String(": ") + file.errorString());
    QVector<QStringList> rows;
    const QStringList lines = QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'));
    for (QString line : lines) {
        if (!line.isEmpty() && !line.startsWith(QLatin1Char('#')))
            rows.append(line.replace(QLatin1String("\\n"), QLatin1String("\n")).split(QLatin1Char('\t')));
    }
    return rows;
}

QString SampleTable::text(const QStringList &row, int column, bool german)
{
    return row.value(german && row.size() > column + 1 ? column + 1 : column);
}

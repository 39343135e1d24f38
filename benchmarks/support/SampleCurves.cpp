#include "benchmarks/support/SampleCurves.h"

#include "benchmarks/support/RandomNumbers.h"

#include <QFile>

namespace SampleCurves {

namespace {

QString decimal(int thousandths)
{
    return QString::number(thousandths / 1000.0, 'f', 3);
}

QString curveText(RandomNumbers &numbers)
{
    QStringList points;
    int current = 7700 + numbers.below(200);
    for (int i = 0; i < pointCount; ++i) {
        current -= 1 + numbers.below(i > 100 ? 500 : 5);
        points.append(decimal(4163 + 4670 * i + numbers.below(99)) + ':' + decimal(qMax(current, 0)) + ':' +
                      decimal(894596 + numbers.below(4000)) + QStringLiteral(":0"));
    }
    return points.join('#');
}

} // namespace

const QStringList &texts()
{
    static const QStringList all = [] {
        RandomNumbers numbers;
        QStringList made;
        for (int i = 0; i < stringCount; ++i)
            made.append(curveText(numbers));
        return made;
    }();
    return all;
}

IVCurve::StringHeader header()
{
    IVCurve::StringHeader header;
    header.fileVersion = 2;
    header.irradiance = QStringLiteral("896.5");
    header.cellTemp = QStringLiteral("43.2");
    header.ambientTemp = QStringLiteral("19.8");
    header.isc = QStringLiteral("7.71");
    header.voc = QStringLiteral("602.5");
    return header;
}

QByteArray testerFile()
{
    QByteArray text =
        "PV Tester,4711-0815,V2.10,2\r\nIndex,Irr (W/m2),Tpv (C),IVCurve,StatusCode,Checksum\r\n";
    int index = 0;
    for (const QString &points : texts()) {
        const QByteArray line =
            QByteArray::number(++index) + ",896.5,43.2," + points.toLatin1().replace('#', ',') + ",0,";
        quint16 sum = 1;
        for (const char byte : line)
            sum = static_cast<quint16>(sum + static_cast<unsigned char>(byte));
        text += line + QByteArray::number(sum, 16) + "\r\n";
    }
    return text;
}

void writeEmptyFile(const QString &path)
{
    QFile::remove(path);
    if (!QFile::copy(QStringLiteral(":res/reports_en/default.kelcrv"), path) ||
        !QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner))
        qFatal("cannot make a curve file");
}

} // namespace SampleCurves

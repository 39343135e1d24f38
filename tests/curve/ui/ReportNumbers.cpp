#include "tests/curve/ui/ReportNumbers.h"

#include "curve/data/ModuleDatabase.h"
#include "tests/curve/data/CurveSample.h"

#include <QLocale>
#include <QRegularExpression>
#include <QVector>

#include <cmath>

namespace {

struct Point
{
    double v = 0;
    double i = 0;
    double g = 0;
};

using Points = QVector<Point>;

struct Module
{
    bool known = false;
    double voc = 0;
    double isc = 0;
    double vmp = 0;
    double imp = 0;
    double series = 1;
    double parallel = 1;
};

/// What the file holds of a string, numbers where it has some and the defaults where it has none.
struct Stored
{
    Points points;
    double irradiance = 0;
    double cellTemp = 0;
    double ambientTemp = 0;
    double ff = 0;
    double isc = 0;
    double voc = 0;
    int algorithm = 2;
    double alpha = 0.004;
    double beta = -0.15;
    double delta = 0.085;
    double a = 0.06;
    double b = -0.004;
    double K = 0.00125;
    double Rs = 0.35;
    bool perPoint = false;
    Module module;
};

void take(double &target, const QVariant &value)
{
    bool isNumber = false;
    const double number = value.toDouble(&isNumber);
    if (isNumber && !value.isNull())
        target = number;
}

Module moduleOf(const QVariantList &row)
{
    Module module;
    if (row.at(0).toUInt() == 0)
        return module;
    const auto rows = CurveSample::rows(
        IVCurve::ModuleDatabase::defaultPath(),
        QString("SELECT Voc, Isc, Vmp, Imp FROM Modules WHERE _id = %1").arg(row.at(0).toUInt()));
    if (rows.isEmpty())
        return module;
    module.known = true;
    take(module.voc, rows[0][0]);
    take(module.isc, rows[0][1]);
    take(module.vmp, rows[0][2]);
    take(module.imp, rows[0][3]);
    take(module.series, row.at(1));
    take(module.parallel, row.at(2));
    return module;
}

Stored read(const QString &file, unsigned id)
{
    const QString from = QString(" FROM Curves WHERE CurveID = %1").arg(id);
    Stored stored;
    const QString points = CurveSample::value(file, "SELECT CurvePoints" + from).toString();
    for (const QString &point : points.split('#', Qt::SkipEmptyParts)) {
        const QStringList parts = point.split(':');
        stored.points.append({parts[0].toDouble(), parts[1].toDouble(), parts[2].toDouble()});
    }
    const auto row = CurveSample::rows(file, "SELECT ifnull(Irradiance, ''), ifnull(CellTemp, ''), "
                                             "ifnull(AmbientTemp, ''), ifnull(FF, ''), ifnull(Isc, ''), "
                                             "ifnull(Voc, ''), ifnull(STCAlgorithm, 2), "
                                             "ifnull(STC_alpha, 0.004), ifnull(STC_beta, -0.15), "
                                             "ifnull(STC_delta, 0.085), ifnull(STC_a, 0.06), "
                                             "ifnull(STC_b, -0.004), ifnull(STC_K, 0.00125), "
                                             "ifnull(STC_Rs, 0.35), ifnull(FileVersion, 0), "
                                             "ifnull(ModuleID, 0), ifnull(ModuleSeries, 1), "
                                             "ifnull(ModuleParallel, 1)" +
                                                 from)
                         .value(0);
    double *const targets[] = {&stored.irradiance, &stored.cellTemp, &stored.ambientTemp,
                               &stored.ff,         &stored.isc,      &stored.voc};
    for (int i = 0; i < 6; ++i)
        take(*targets[i], row[i]);
    stored.algorithm = row[6].toInt();
    double *const settings[] = {&stored.alpha, &stored.beta, &stored.delta, &stored.a,
                                &stored.b,     &stored.K,    &stored.Rs};
    for (int i = 0; i < 7; ++i)
        take(*settings[i], row[7 + i]);
    stored.perPoint = row[14].toInt() != 0;
    stored.module = moduleOf(row.mid(15));
    return stored;
}

double or_(double value, double other)
{
    return value != 0.0 ? value : other;
}

/// The points at standard test conditions. The first and the last one are corrected once more, before and
/// after the others, to close the curve at the axes.
Points anderson(const Stored &s)
{
    const double T = or_(s.cellTemp, 25);
    double G = or_(s.irradiance, 1000);
    double last = G;
    const double isc = s.points.first().i;
    double voc = 0;
    for (const Point &p : s.points)
        voc = std::max(voc, p.v);
    const auto correct = [&](const Point &p) {
        if (s.perPoint) {
            G = p.g != 0 ? p.g : last;
            last = G;
        }
        const double ar = s.module.known && s.module.isc > 0 ? s.alpha / s.module.isc
                                                             : s.alpha * s.module.parallel * G / 1000 / isc;
        const double vocRef =
            s.module.known && s.module.voc > 0 ? (s.module.series * s.module.voc + voc) / 2 : voc;
        const double br = s.beta * s.module.series / vocRef;
        return Point{p.v / ((1 + s.delta * std::log(G / 1000)) * (1 + br * (T - 25))),
                     p.i / ((1 + ar * (T - 25)) * G / 1000), p.g};
    };
    Points result;
    const Point start = correct(s.points.first());
    if (start.v > 0)
        result.append({0, start.i, 0});
    for (const Point &p : s.points)
        result.append(correct(p));
    const Point end = correct(s.points.last());
    if (end.i > 0)
        result.append({end.v, 0, 0});
    return result;
}

Points iec60891(const Stored &s)
{
    const double dT = 25 - or_(s.cellTemp, 25);
    const double G = or_(s.irradiance, 1000);
    double reference = 1000;
    for (const Point &p : s.points) {
        if (p.g != 0 && p.g != 1000.0) {
            reference = p.g;
            break;
        }
    }
    const double isc = s.points.first().i;
    double last = G;
    const auto correct = [&](const Point &p) {
        double rise = isc * (1000 / G - 1);
        if (s.perPoint) {
            last = or_(p.g, last);
            rise = isc * last / reference * (1000 / last - 1);
        }
        const double i = p.i + rise + s.alpha * s.module.parallel * dT;
        return Point{p.v + s.module.series * (s.beta * dT - s.Rs * (i - p.i) - s.K * i * dT), i, p.g};
    };
    Points result;
    const Point start = correct(s.points.first());
    if (start.v > 0)
        result.append({0, start.i, 0});
    for (const Point &p : s.points)
        result.append(correct(p));
    const Point end = correct(s.points.last());
    if (end.i > 0)
        result.append({end.v, 0, 0});
    return result;
}

/// This method takes numbers with a point only: with a decimal comma in the texts it reads nothing.
Points blaesser(const Stored &s)
{
    const auto seen = [](double value) { return QLocale().toString(value, 'g', 6).toDouble(); };
    const double T = or_(seen(s.ambientTemp), 25);
    const double G = or_(seen(s.irradiance), 1000);
    const double cI = (1 + seen(s.alpha) / s.isc * (25 - T)) * 1000 / G;
    const double cV = seen(s.a) * std::log(1000 / G) + seen(s.b) * (25 - T);
    const auto correct = [&](const Point &p) {
        const double i = cI * p.i;
        return Point{p.v + cV * s.voc + seen(s.Rs) * (p.i - i), i, p.g};
    };
    Points result;
    const Point start = correct(s.points.first());
    if (start.v > 0)
        result.append({0, start.i, 0});
    for (const Point &p : s.points)
        result.append(correct(p));
    const Point end = correct(s.points.last());
    if (end.i > 0)
        result.append({end.v, 0, 0});
    return result;
}

Points corrected(const Stored &stored)
{
    if (stored.points.isEmpty())
        return Points();
    if (stored.algorithm == 0)
        return blaesser(stored);
    return stored.algorithm == 1 ? iec60891(stored) : anderson(stored);
}

QString text(double value, int decimals)
{
    return QLocale().toString(value, 'f', decimals);
}

void putCurve(QMap<QString, QString> &cells, const QString &source, const Points &points)
{
    if (points.isEmpty())
        return;
    Point best = points.first();
    for (const Point &p : points) {
        if (p.v * p.i > best.v * best.i)
            best = p;
    }
    cells[source + "_PWR"] = text(best.v * best.i, 0);
    cells[source + "_VMPP"] = text(best.v, 1);
    cells[source + "_IMPP"] = text(best.i, 2);
    cells[source + "_VOC"] = text(points.last().v, 1);
    cells[source + "_ISC"] = text(points.first().i, 2);
}

double highestPower(const Points &points)
{
    double power = 0;
    for (const Point &p : points)
        power = std::max(power, p.v * p.i);
    return power;
}

} // namespace

QMap<QString, QString> reportNumbers(const QString &curveFile, unsigned id)
{
    const Stored stored = read(curveFile, id);
    QMap<QString, QString> cells;
    cells["IRRADIANCE"] = text(stored.irradiance, 0);
    cells["CELLTEMP"] = text(stored.cellTemp, 1);
    cells["FILLFACTOR"] = text(stored.ff, 0);
    putCurve(cells, "MEAS", stored.points);
    const Points stc = corrected(stored);
    putCurve(cells, "STC", stc);
    const Module &module = stored.module;
    if (!module.known)
        return cells;
    const double power = module.series * module.vmp * module.parallel * module.imp;
    cells["NOM_PWR"] = text(power, 0);
    cells["NOM_VOC"] = text(module.series * module.voc, 1);
    cells["NOM_VMPP"] = text(module.series * module.vmp, 1);
    cells["NOM_ISC"] = text(module.parallel * module.isc, 2);
    cells["NOM_IMPP"] = text(module.parallel * module.imp, 2);
    if (!stc.isEmpty())
        cells["DIFF_PWR"] = text(std::abs(power - highestPower(stc)) / power * 100, 1);
    return cells;
}

QVector<QStringList> reportRows(const QString &html, int cells)
{
    QVector<QStringList> found;
    static const QRegularExpression row("<tr>\n(.*?)</tr>\n", QRegularExpression::DotMatchesEverythingOption);
    static const QRegularExpression cell(
        "<td style=\" font-family: Arial, Helvetica, sans-serif;[^>]*\">(.*?)< / td>");
    auto rows = row.globalMatch(html);
    while (rows.hasNext()) {
        QStringList texts;
        auto all = cell.globalMatch(rows.next().captured(1));
        while (all.hasNext())
            texts.append(all.next().captured(1));
        if (texts.size() == cells)
            found.append(texts);
    }
    return found;
}

QStringList conditionCellNames()
{
    return {"DATE", "IRRADIANCE", "CELLTEMP", "FILLFACTOR"};
}

QStringList valueCellNames()
{
    return {"MEAS_PWR", "STC_PWR",  "NOM_PWR",  "DIFF_PWR", "MEAS_VOC", "STC_VOC",   "NOM_VOC",  "MEAS_VMPP",
            "STC_VMPP", "NOM_VMPP", "MEAS_ISC", "STC_ISC",  "NOM_ISC",  "MEAS_IMPP", "STC_IMPP", "NOM_IMPP"};
}

#pragma once

#include <QVariant>

namespace IVCurve {

/// A row of the catalogue of modules. The values are those of the database, or what an editor wrote.
struct CurveModuleRow
{
    CurveModuleRow() = default;
    CurveModuleRow(const CurveModuleRow &) = default;
    CurveModuleRow &operator=(const CurveModuleRow &) = default;
    virtual ~CurveModuleRow();

    /// 0 for a row that is not in the table.
    quint32 id = 0;
    QVariant Description;
    QVariant Voc;
    QVariant Isc;
    QVariant Vmp;
    QVariant Imp;
    QVariant alpha;
    QVariant beta;
    QVariant delta;
    QVariant Rs;
    QVariant UserModule;
    QVariant Favourite;
};

} // namespace IVCurve

#include "curve/ui/ModuleList.h"

#include "curve/data/ModuleDatabase.h"

#include <QComboBox>
#include <QSettings>

namespace IVCurve::ModuleList {

bool favouritesOnly()
{
    return QSettings().value(QStringLiteral("Curves/ShowModuleFavouritesOnly"), false).toBool();
}

void setFavouritesOnly(bool on)
{
    QSettings().setValue(QStringLiteral("Curves/ShowModuleFavouritesOnly"), on);
}

bool read(bool favouritesOnly, QVector<CurveModuleRow> &rows)
{
    const ModuleTable *table = ModuleDatabase::instance().table();
    if (!table)
        return false;
    if (favouritesOnly)
        table->favouriteRows(rows);
    else
        table->allRows(rows);
    return true;
}

void append(QComboBox *list, const CurveModuleRow &row)
{
    list->addItem(row.Description.toString(), row.id);
}

} // namespace IVCurve::ModuleList

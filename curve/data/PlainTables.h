#pragma once

#include <QString>
#include <QStringList>

class QSqlDatabase;

namespace IVCurve {

/// A database comes from anywhere. Before the first statement on its tables this makes the connection
/// careful, and looks whether something else stands under the names of the tables: a view or a computed
/// column there would run a stranger's statements at each query, and a trigger at each change.
///
/// Empty if all is well, else what was found, for the user. A table that is missing and a file that cannot be
/// read are not found here: the first statement will tell.
QString hostileSchema(const QSqlDatabase &database, const QStringList &tables);

} // namespace IVCurve

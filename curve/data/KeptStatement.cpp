#include "curve/data/KeptStatement.h"

#include "curve/data/SqlMessages.h"

namespace IVCurve {

QSqlQuery *KeptStatement::prepared(const QSqlDatabase &database)
{
    if (m_query)
        return &*m_query;
    QSqlQuery query(database);
    if (!prepareOrTell(query, m_text))
        return nullptr;
    m_query = query;
    return &*m_query;
}

} // namespace IVCurve

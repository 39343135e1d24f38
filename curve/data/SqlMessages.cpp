#include "curve/data/SqlMessages.h"

#include "app/core/Messages.h"
#include "app/core/Shell.h"

#include <QSqlError>
#include <QSqlQuery>

namespace IVCurve {

void showSqlError(const QSqlError &error)
{
    Message message;
    message.parent = Shell::parentWindow();
    message.icon = QMessageBox::Critical;
    message.text = error.text();
    showMessage(message);
}

bool prepareOrTell(QSqlQuery &query, const QString &statement)
{
    if (query.prepare(statement))
        return true;
    showSqlError(query.lastError());
    return false;
}

bool execOrTell(QSqlQuery &query)
{
    if (query.exec())
        return true;
    showSqlError(query.lastError());
    return false;
}

} // namespace IVCurve

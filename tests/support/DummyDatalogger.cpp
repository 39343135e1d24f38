#include "tests/support/DummyDatalogger.h"

#include "app/core/Datalogger.h"

#include <QFile>
#include <QFileInfo>
#include <QtTest>

namespace DummyDatalogger {

void place(const char *variable, const QString &value)
{
    QVERIFY(QFile::copy(QStringLiteral(KELMAR_DUMMY_DATALOGGER), Datalogger::programPath()));
    if (variable)
        qputenv(variable, value.toLocal8Bit());
}

void remove()
{
    QFile::remove(Datalogger::programPath());
    for (const char *variable :
         {"KELMAR_DUMMY_RECORD", "KELMAR_DUMMY_WAITS", "KELMAR_DUMMY_MARK", "KELMAR_DUMMY_CODE"})
        qunsetenv(variable);
}

QString name()
{
    return QFileInfo(Datalogger::programPath()).fileName();
}

} // namespace DummyDatalogger

#include "tests/curve/data/CurveSample.h"

#include "app/core/Folders.h"
#include "curve/data/ModuleDatabase.h"
#include "res/Resources.h"
#include "tests/support/TestHome.h"

#include <QDir>
#include <QFile>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QtTest>

#include <cmath>

namespace {

const QString connection = QStringLiteral("beside");

template <typename Use> void useDatabase(const QString &path, const Use &use)
{
    {
        QSqlDatabase database = QSqlDatabase::addDatabase("QSQLITE", connection);
        database.setDatabaseName(path);
        QVERIFY2(database.open(), qPrintable(database.lastError().text()));
        use(database);
    }
    QSqlDatabase::removeDatabase(connection);
}

} // namespace

namespace CurveSample {

QString newFile(const QString &name)
{
    initResources();
    const QString path = TestHome::instance()->path(name);
    QFile::remove(path);
    QFile::copy(":res/reports_en/default.kelcrv", path);
    QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner);
    return path;
}

QString fileFromSql(const QStringList &statements, const QString &name)
{
    const QString path = TestHome::instance()->path(name);
    QFile::remove(path);
    execute(path, statements);
    return path;
}

void execute(const QString &path, const QStringList &statements)
{
    useDatabase(path, [&](const QSqlDatabase &database) {
        for (const QString &statement : statements) {
            QSqlQuery query(database);
            QVERIFY2(query.exec(statement), qPrintable(statement + ": " + query.lastError().text()));
        }
    });
}

QVector<QVariantList> rows(const QString &path, const QString &statement)
{
    QVector<QVariantList> all;
    useDatabase(path, [&](const QSqlDatabase &database) {
        QSqlQuery query(database);
        QVERIFY2(query.exec(statement), qPrintable(query.lastError().text()));
        while (query.next()) {
            QVariantList values;
            for (int column = 0; query.value(column).isValid(); ++column)
                values.append(query.value(column));
            all.append(values);
        }
    });
    return all;
}

QVariant value(const QString &path, const QString &statement)
{
    return rows(path, statement).value(0).value(0);
}

QString writeCatalogue(const QStringList &modules)
{
    forgetCatalogue();
    const QString path = IVCurve::ModuleDatabase::defaultPath();
    QStringList statements{
        "CREATE TABLE Modules (_id INTEGER PRIMARY KEY, Description TEXT, Isc REAL, Voc REAL, "
        "Imp REAL, Vmp REAL, alpha REAL, beta REAL, delta REAL, Rs REAL, UserModule INTEGER, "
        "Favourite INTEGER)"};
    for (const QString &module : modules)
        statements.append("INSERT INTO Modules VALUES (" + module + ")");
    execute(path, statements);
    return path;
}

void forgetCatalogue()
{
    // Without a file an attempt to open it would be told: none is made unless one is there.
    const QString path = IVCurve::ModuleDatabase::defaultPath();
    if (QFile::exists(path))
        IVCurve::ModuleDatabase::instance().close();
    QFile::remove(path);
}

IVCurve::StringRecord record(int points)
{
    IVCurve::CurveTrace trace;
    for (int i = 0; i < points; ++i)
        trace.addPoint(i * 600.0 / points, 8 * (1 - std::pow(double(i) / points, 9)), 803, i % 4);
    IVCurve::StringHeader header;
    header.testerSerialNo = "5120-0347";
    header.fileVersion = 2;
    header.memLocation = 7;
    header.testDate = "2016-05-12T10:11:29";
    header.irradiance = "803";
    header.cellTemp = "45";
    header.voc = "600";
    return IVCurve::StringRecord(header, trace);
}

} // namespace CurveSample

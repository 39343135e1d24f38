#include "curve/data/CurveTable.h"

#include "app/core/Messages.h"
#include "app/core/NumberText.h"
#include "app/core/Shell.h"
#include "curve/data/CurveModuleRow.h"
#include "curve/data/ModuleDatabase.h"
#include "curve/data/PointText.h"
#include "curve/data/SqlMessages.h"
#include "curve/data/StringRecord.h"

#include <QCoreApplication>
#include <QSqlError>
#include <QSqlQuery>
#include <QVariant>

namespace IVCurve {

namespace {

/// Columns in the order of the load statement.
enum Column
{
    CurveID,
    CurvePoints,
    MemLocation,
    TestDate,
    TesterSerNo,
    Irradiance,
    AmbientTemp,
    CellTemp,
    Voc,
    Isc,
    Riso,
    Viso,
    Iclamp,
    Rpe,
    FF,
    Vmp,
    Imp,
    STCAlgorithmColumn,
    STC_alpha,
    STC_beta,
    STC_delta,
    STC_a,
    STC_b,
    STC_K,
    STC_Rs,
    ModuleID,
    ModuleSeries,
    ModuleParallel,
    FileVersion
};

struct ReadingColumn
{
    Column column;
    const char *placeholder;
    QString StringHeader::*reading;
};

const ReadingColumn readingColumns[] = {{Irradiance, ":Irr", &StringHeader::irradiance},
                                        {AmbientTemp, ":Amb", &StringHeader::ambientTemp},
                                        {CellTemp, ":Cell", &StringHeader::cellTemp},
                                        {Voc, ":Voc", &StringHeader::voc},
                                        {Isc, ":Isc", &StringHeader::isc},
                                        {Riso, ":Riso", &StringHeader::riso},
                                        {Viso, ":Viso", &StringHeader::viso},
                                        {Iclamp, ":Iclamp", &StringHeader::iclamp},
                                        {Rpe, ":Rpe", &StringHeader::rpe},
                                        {FF, ":FF", &StringHeader::ff},
                                        {Vmp, ":Vmp", &StringHeader::vmp},
                                        {Imp, ":Imp", &StringHeader::imp}};

struct SettingColumn
{
    Column column;
    const char *placeholder;
    QString STCparameters::*setting;
};

const SettingColumn settingColumns[] = {{STC_alpha, ":alpha", &STCparameters::alpha},
                                        {STC_beta, ":beta", &STCparameters::beta},
                                        {STC_delta, ":delta", &STCparameters::delta},
                                        {STC_a, ":a", &STCparameters::a},
                                        {STC_b, ":b", &STCparameters::b},
                                        {STC_K, ":K", &STCparameters::K},
                                        {STC_Rs, ":Rs", &STCparameters::Rs}};

/// A text to be stored: never NULL, as what was left empty is an empty text in the file.
QVariant text(const QString &value)
{
    return value.isNull() ? QString::fromLatin1("") : value;
}

QVariant number(const QString &value)
{
    return text(NumberText::toStored(value));
}

StringHeader headerOf(const QSqlQuery &row)
{
    StringHeader header;
    header.testerSerialNo = row.value(TesterSerNo).toString();
    header.memLocation = row.value(MemLocation).toUInt();
    header.fileVersion = row.value(FileVersion).toUInt();
    header.testDate = row.value(TestDate).toString();
    for (const ReadingColumn &facts : readingColumns)
        header.*facts.reading = NumberText::toShown(row.value(facts.column).toString());
    return header;
}

STCparameters settingsOf(const QSqlQuery &row)
{
    STCparameters settings;
    bool isNumber = false;
    const int algorithm = row.value(STCAlgorithmColumn).toInt(&isNumber);
    if (isNumber)
        settings.algorithm = static_cast<quint8>(algorithm);
    for (const SettingColumn &facts : settingColumns) {
        const double value = row.value(facts.column).toDouble(&isNumber);
        if (isNumber)
            settings.*facts.setting = NumberText::shown(value);
    }
    settings.perPointIrradiance = row.value(FileVersion).toUInt() != 0;
    return settings;
}

int countOr1(const QVariant &value)
{
    bool isNumber = false;
    const int count = value.toInt(&isNumber);
    return isNumber && count != 0 ? count : 1;
}

ModuleBinding moduleOf(const QSqlQuery &row)
{
    bool isNumber = false;
    const quint32 id = row.value(ModuleID).toUInt(&isNumber);
    if (!isNumber)
        return ModuleBinding();
    return ModuleDatabase::binding(id, countOr1(row.value(ModuleSeries)),
                                   countOr1(row.value(ModuleParallel)));
}

void tellTooManyPoints()
{
    Message message;
    message.parent = Shell::parentWindow();
    message.icon = QMessageBox::Critical;
    message.text = QCoreApplication::translate("IVCurve::CurveDatabase", "The curve has more than %1 points.",
                                               "Error Message")
                       .arg(maximalPointCount);
    showMessage(message);
}

std::unique_ptr<StringRecord> recordOf(const QSqlQuery &row)
{
    CurveTrace measured(TraceKind::measured);
    if (!appendPoints(row.value(CurvePoints).toString(), measured)) {
        tellTooManyPoints();
        return nullptr;
    }
    auto record = std::make_unique<StringRecord>(headerOf(row), CurveTrace());
    record->takeMeasured(measured);
    record->setCurveId(row.value(CurveID).toUInt());
    record->settings() = settingsOf(row);
    record->module() = moduleOf(row);
    record->findMaximumPower();
    return record;
}

} // namespace

CurveTable::CurveTable(const QSqlDatabase &database)
    : m_database(database)
    , m_insert(QStringLiteral("INSERT INTO Curves (MemLocation,TestDate,TesterSerNo,Irradiance,AmbientTemp,"
                              "CellTemp,Voc, Isc, Riso, Viso, Iclamp, Rpe, FF, Vmp, Imp, CurvePoints, "
                              "FileVersion) VALUES (:MemLoc,:Date,:SerNo,:Irr,:Amb,:Cell,:Voc, :Isc, :Riso, "
                              ":Viso, :Iclamp, :Rpe, :FF, :Vmp, :Imp, :CurvePoints, :FileVersion);"))
{
}

QStringList CurveTable::upgradeStatements()
{
    return {
        QStringLiteral("CREATE TABLE if not exists Curves (CurveID INTEGER PRIMARY KEY, CurvePoints TEXT, "
                       "MemLocation INTEGER, TestDate INTEGER, TesterSerNo TEXT, Irradiance REAL, "
                       "AmbientTemp REAL, CellTemp REAL, Voc REAL, Isc REAL, Riso REAL, Viso REAL, Iclamp "
                       "REAL, Rpe REAL, FF REAL, Vmp REAL, Imp REAL, STCAlgorithm INTEGER, STC_alpha REAL, "
                       "STC_beta REAL, STC_delta REAL, STC_a REAL, STC_b REAL, STC_K REAL, STC_Rs REAL, "
                       "ModuleID INTEGER, ModuleSeries INTEGER, ModuleParallel INTEGER, FileVersion "
                       "INTEGER);"),
        // Fails once the column is there, whose name SQLite does not tell from this spelling.
        QStringLiteral("ALTER TABLE Curves ADD COLUMN Fileversion INTEGER;")};
}

quint32 CurveTable::insert(const StringRecord &record)
{
    if (!m_database.isOpen())
        return 0;
    QSqlQuery *query = m_insert.prepared(m_database);
    if (!query)
        return 0;
    const StringHeader &header = record.header();
    query->bindValue(QStringLiteral(":MemLoc"), header.memLocation);
    query->bindValue(QStringLiteral(":Date"), text(header.testDate));
    query->bindValue(QStringLiteral(":SerNo"), text(header.testerSerialNo));
    for (const ReadingColumn &facts : readingColumns)
        query->bindValue(QLatin1String(facts.placeholder), number(header.*facts.reading));
    query->bindValue(QStringLiteral(":CurvePoints"), text(pointText(record.measuredCurve())));
    query->bindValue(QStringLiteral(":FileVersion"), header.fileVersion);
    return execOrTell(*query) ? query->lastInsertId().toUInt() : 0;
}

bool CurveTable::Reader::prepare()
{
    if (m_query)
        return true;
    auto query = std::make_unique<QSqlQuery>(m_database);
    query->setForwardOnly(true);
    if (!prepareOrTell(*query,
                       QStringLiteral("SELECT CurveID, CurvePoints, MemLocation, TestDate, TesterSerNo, "
                                      "Irradiance, AmbientTemp, CellTemp, Voc, Isc, Riso, Viso, Iclamp, Rpe, "
                                      "FF, Vmp, Imp, STCAlgorithm, STC_alpha, STC_beta, STC_delta, STC_a, "
                                      "STC_b, STC_K, STC_Rs, ModuleID, ModuleSeries, ModuleParallel, "
                                      "FileVersion FROM Curves WHERE CurveID = ?")))
        return false;
    m_query = std::move(query);
    return true;
}

std::unique_ptr<StringRecord> CurveTable::Reader::load(quint32 id)
{
    if (!m_database.isOpen() || !prepare())
        return nullptr;
    m_query->bindValue(0, id);
    if (!execOrTell(*m_query) || !m_query->next())
        return nullptr;
    auto record = recordOf(*m_query);
    // A text that memory does not hold reads as an empty one; it is the next step that fails.
    if (record && !m_query->next() && m_query->lastError().isValid()) {
        showSqlError(m_query->lastError());
        record.reset();
    }
    // What is still being read would keep others from writing.
    m_query->finish();
    return record;
}

bool CurveTable::updateSettings(const StringRecord &record)
{
    if (!m_database.isOpen())
        return false;
    QSqlQuery query(m_database);
    if (!prepareOrTell(
            query,
            QStringLiteral("UPDATE Curves SET STCAlgorithm = :alg,STC_alpha = :alpha,STC_beta = "
                           ":beta,STC_delta = :delta,STC_a = :a,STC_b = :b,STC_K = :K,STC_Rs = "
                           ":Rs,ModuleID = :ModuleID,ModuleSeries = :series,ModuleParallel = "
                           ":parallel,Irradiance = :G,AmbientTemp = :Ta,CellTemp = :Tpv WHERE CurveID = "
                           ":CurveID;")))
        return false;
    query.bindValue(QStringLiteral(":alg"), record.settings().algorithm);
    for (const SettingColumn &facts : settingColumns)
        query.bindValue(QLatin1String(facts.placeholder), number(record.settings().*facts.setting));
    query.bindValue(QStringLiteral(":ModuleID"), record.module().moduleId);
    query.bindValue(QStringLiteral(":series"), record.module().series);
    query.bindValue(QStringLiteral(":parallel"), record.module().parallel);
    query.bindValue(QStringLiteral(":G"), number(record.header().irradiance));
    query.bindValue(QStringLiteral(":Ta"), number(record.header().ambientTemp));
    query.bindValue(QStringLiteral(":Tpv"), number(record.header().cellTemp));
    query.bindValue(QStringLiteral(":CurveID"), record.curveId());
    return execOrTell(query);
}

bool CurveTable::assignModule(quint32 id, const CurveModuleRow &module, int series, int parallel)
{
    if (!m_database.isOpen())
        return false;
    QSqlQuery query(m_database);
    if (!prepareOrTell(query,
                       QStringLiteral("UPDATE Curves SET STC_alpha = :alpha,STC_beta = :beta,STC_delta = "
                                      ":delta,STC_Rs = :Rs,ModuleID = :ModuleID,ModuleSeries = "
                                      ":series,ModuleParallel = :parallel WHERE CurveID = :CurveID;")))
        return false;
    query.bindValue(QStringLiteral(":alpha"), module.alpha);
    query.bindValue(QStringLiteral(":beta"), module.beta);
    query.bindValue(QStringLiteral(":delta"), module.delta);
    query.bindValue(QStringLiteral(":Rs"), module.Rs);
    query.bindValue(QStringLiteral(":ModuleID"), module.id);
    query.bindValue(QStringLiteral(":series"), series);
    query.bindValue(QStringLiteral(":parallel"), parallel);
    query.bindValue(QStringLiteral(":CurveID"), id);
    return execOrTell(query);
}

} // namespace IVCurve

#include "tests/report/FormEntries.h"

#include <iterator>

namespace {

struct Entry
{
    const char *id;
    const char *english;
    const char *german;
};

constexpr Entry entries[] = {
    {"installation_address", "K. Example\nSunny Lane 12\nSampleton SA1 2MP\nUnited Kingdom",
     "K. Beispiel\nSonnengasse 12\n12345 Musterstadt\nDeutschland"},
    {"description_of_work",
     "Roof south, strings 1 to 6 of 18 modules each, inverter in the cellar. New installation, tested before "
     "the "
     "first connection to the grid.",
     "Süddach, Stränge 1 bis 6 mit je 18 Modulen, Wechselrichter im Keller. Neuanlage, geprüft vor dem "
     "ersten "
     "Anschluss an das Netz."},
    {"report_ref_id", "SL12-2016-05", "SG12-2016-05"},
    {"DD/MM/YYYY", "12/05/2016", "12.05.2016"},
    {"inspection_date", "12/05/2016", "12.05.2016"},
    {"test_date", "12/05/2016", "12.05.2016"},
    {"signature_date", "13/05/2016", "13.05.2016"},
    {"inspector", "A. Inspector", "A. Prüfer"},
    {"inspector_name", "A. Inspector", "A. Prüfer"},
    {"signature_names", "A. Inspector, B. Installer", "A. Prüfer, B. Errichter"},
    {"test_instruments", "PV tester 5120-0347, calibrated 02/2016",
     "PV-Prüfgerät 5120-0347, kalibriert 02/2016"},
    {"comments",
     "String 5 was measured under thin clouds and is to be measured again in full sun. Everything else "
     "without findings.",
     "Strang 5 wurde bei dünner Bewölkung gemessen und ist bei voller Sonne nachzumessen. Im Übrigen ohne "
     "Befund."},
    {"client", "K. Example", "K. Beispiel"},
    {"contractor", "Bright Roofs Ltd\nHarbour Street 4\nSampleton SA1 1PV",
     "Helle Dächer GmbH\nHafenstraße 4\n12345 Musterstadt"},
    {"installation_description",
     "108 modules KM-300 in six strings on the roof, three inverters of 10 kW in the cellar, one AC "
     "distribution "
     "board with a generation meter.",
     "108 Module KM-300 in sechs Strängen auf dem Dach, drei Wechselrichter mit je 10 kW im Keller, ein "
     "AC-Verteiler mit Erzeugungszähler."},
    {"rated_power", "32.4", "32,4"},
    {"location", "Roof south", "Süddach"},
    {"circuits_tested", "Strings 1 to 6, inverters 1 to 3", "Stränge 1 bis 6, Wechselrichter 1 bis 3"},
    {"circuits_inspected",
     "Strings 1 to 6 with their cables to the inverters 1 to 3, AC circuits up to the meter.",
     "Stränge 1 bis 6 mit ihren Leitungen zu den Wechselrichtern 1 bis 3, AC-Stromkreise bis zum Zähler."},
    {"iec_inspection_ref", "EI-2016-114", "EI-2016-114"},
    {"pv_array_inspection_ref", "SL12-2016-03", "SG12-2016-03"},
    {"iec_test_ref", "EI-2016-115", "EI-2016-115"},
    {"pv_array_test_ref", "SL12-2016-05", "SG12-2016-05"},
    {"next_inspection", "4 years", "4 Jahren"},
};

/// The rows of the table below the numbers of the strings.
constexpr Entry cells[] = {
    {"", "KM-300", "KM-300"},
    {"", "18", "18"},
    {"", "720.0", "720,0"},
    {"", "9.60", "9,60"},
    {"", "gPV fuse", "gPV"},
    {"", "15", "15"},
    {"", "1000", "1000"},
    {"", "10", "10"},
    {"", "H1Z2Z2-K", "H1Z2Z2-K"},
    {"", "6", "6"},
    {"", "6", "6"},
    {"", "635.9", "635,9"},
    {"", "5.93", "5,93"},
    {"", "675", "675"},
    {"", "correct", "in Ordnung"},
    {"", "1000", "1000"},
    {"", ">200", ">200"},
    {"", "122.7", "122,7"},
    {"", "0.45", "0,45"},
    {"", "yes", "ja"},
    {"", "KM 10 TL", "KM 10 TL"},
    {"", "20160512", "20160512"},
    {"", "yes", "ja"},
    {"", "passed", "bestanden"},
};

QString inLanguage(const Entry &entry, const QString &language)
{
    return QString::fromUtf8(language == QLatin1String("de") ? entry.german : entry.english);
}

} // namespace

QString formEntry(const QString &id, const QString &language)
{
    for (const Entry &entry : entries) {
        if (id == QLatin1String(entry.id))
            return inLanguage(entry, language);
    }
    return QString();
}

QString formCellEntry(int row, int column, const QString &language)
{
    if (row == 0)
        return QString::number(column - 1);
    return row <= int(std::size(cells)) ? inLanguage(cells[row - 1], language) : QString();
}

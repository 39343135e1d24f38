#pragma once

/// The array test report as stored reports and the import know it, written down independently of the form's
/// source.
namespace ArrayTestForm {

struct Item
{
    const char *tag;
    const char *id;
    const char *text;
    const char *fontSize;
    double x;
    double y;
    double width;
    double height;
};

constexpr Item items[] = {
    {"text", "", "PV Array Test Report", "22", 31.83, 77, 300, 42},
    {"checkBox", "initial", "Initial Verification", "11", 52.17, 117, 122, 25},
    {"checkBox", "periodic", "Periodic Verification", "11", 189.83, 117, 140, 25},
    {"text", "", "INSTALLATION ADDRESS", "7.7", 43, 162, 153, 21},
    {"text", "", "DESCRIPTION OF WORK UNDER TEST", "7.7", 43, 289, 224, 21},
    {"text", "", "REFERENCE", "7.7", 574, 162, 79, 21},
    {"text", "", "DATE", "7.7", 574, 225, 39, 21},
    {"text", "", "INSPECTOR", "7.7", 575, 289.5, 75, 21},
    {"text", "", "TEST INSTRUMENTS", "7.7", 575, 353.5, 122, 21},
    {"text", "installation_address", "", "9", 45, 189, 501, 97},
    {"text", "description_of_work", "", "9", 45, 317, 502, 97},
    {"text", "report_ref_id", "", "9", 576, 188, 172, 33},
    {"text", "DD/MM/YYYY", "", "9", 576, 252, 171, 33},
    {"text", "inspector", "", "9", 575, 317, 173, 33},
    {"text", "test_instruments", "", "9", 575, 381, 174, 33},
    {"table", "test_table", "", "7", 38.5, 435, 716.5, 648.2},
    {"text", "comments", "", "9", 45, 961, 704, 116},
};

struct Cell
{
    int row;
    int col;
    int rowspan;
    int colspan;
    const char *editable;
    const char *text;
    const char *id;
};

constexpr Cell cells[] = {
    {0, 0, 1, 2, "0", "STRING", ""},
    {0, 2, 1, 1, "", "1", ""},
    {0, 3, 1, 1, "", "2", ""},
    {0, 4, 1, 1, "", "3", ""},
    {0, 5, 1, 1, "", "4", ""},
    {0, 6, 1, 1, "", "5", ""},
    {0, 7, 1, 1, "", "6", ""},
    {1, 0, 2, 1, "", "Array", ""},
    {1, 1, 1, 1, "", "Module", ""},
    {2, 1, 1, 1, "", "Quantity", ""},
    {3, 0, 2, 1, "", "Array parameters(as specified)", ""},
    {3, 1, 1, 1, "", "Voc (stc)", ""},
    {4, 1, 1, 1, "", "Isc (stc)", ""},
    {5, 0, 4, 1, "", "String over-current protective device", ""},
    {5, 1, 1, 1, "", "Type", ""},
    {6, 1, 1, 1, "", "Rating (A)", ""},
    {7, 1, 1, 1, "", "D Rating (V)", ""},
    {8, 1, 1, 1, "", "Capacity (kA)", ""},
    {9, 0, 3, 1, "", "Wiring", ""},
    {9, 1, 1, 1, "", "Type", ""},
    {10, 1, 1, 1, "", "Phase (mm2)", ""},
    {11, 1, 1, 1, "", "Earth (mm2)", ""},
    {12, 0, 3, 1, "", "String test", ""},
    {12, 1, 1, 1, "", "Voc (V)", "Voc (VDC)"},
    {13, 1, 1, 1, "", "Isc (A)", "Isc (ADC)"},
    {14, 1, 1, 1, "", "Irradiance", "Irr (W/m2)"},
    {15, 0, 1, 2, "", "Polarity Check", ""},
    {16, 0, 3, 1, "", "Array insulation resistance", ""},
    {16, 1, 1, 1, "", "Test voltage (V)", "Viso (V)"},
    {17, 1, 1, 1, "", "Pos - Earth (M\u03a9)", "Riso (MOhm)"},
    {18, 1, 1, 1, "", "Neg - Earth (M\u03a9)", "-Riso (MOhm)"},
    {19, 0, 1, 2, "", "Earth continuity (where fitted)", "Rpe (Ohm)"},
    {20, 0, 1, 2, "", "Switchgear functioning correctly", ""},
    {21, 0, 1, 2, "", "Inverter make / model", ""},
    {22, 0, 1, 2, "", "Inverter serial number", ""},
    {23, 0, 1, 2, "", "Inverter functioning correctly", ""},
    {24, 0, 1, 2, "", "Loss of mains test", ""},
    {25, 0, 1, 8, "0", "Comments", ""},
};

constexpr double columnWidth = 100;
constexpr double headRowHeight = 19.5;
constexpr double commentsRowHeight = 143.2;
constexpr int commentsRow = 25;
/// What the 24 rows between share.
constexpr double rowHeight = (648.2 - headRowHeight - commentsRowHeight) / 24;

} // namespace ArrayTestForm

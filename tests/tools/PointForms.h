#pragma once

#include <QStringList>
#include <QVector>

/// The forms without a table, as stored reports know them, written down independently of their sources.
namespace PointForms {

/// Stands for a text whose wording is the form's own business.
extern const QString ownWording;

struct Page
{
    QString background;
    /// Labels and check boxes in reading order: check boxes by their ids with "#" before them.
    QStringList outline;
    /// The ids of the fields in the order in which Tab visits them.
    QStringList fields;
};

struct Form
{
    QString suffix;
    /// What every page of the form is given besides its id and size.
    QString font;
    QString fontSize;
    QString backgroundColour;
    /// Where the symbols of the points stand.
    QString boxPosX;
    QString boxPosY;
    QString boxScale;
    QVector<Page> pages;
};

const QVector<Form> &forms();

/// The clause that a point quotes, by the id of its check box.
struct Clause
{
    const char *id;
    const char *clause;
};

constexpr Clause clauses[] = {
    {"iec_60364-7-712_433_a", "(712.433)"},           {"iec_60364-7-712_413_2", "(712.413.2)"},
    {"iec_60364-7-712_522_8_1", "(712.522.8.1)"},     {"iec_60364-7-712_522_8_3", "(712.522.8.3)"},
    {"iec_60364-7-712_433_b", "(712.433)"},           {"iec_60364-7-712_433_2", "(712.433.2)"},
    {"iec_60364-7-712.536_2_2_5", "(712.536.2.2.5)"}, {"iec_60364-712-512_1_1", "(712.512.1.1)"},
    {"iec_60364-712-312_2", "(712.312.2)"},           {"iec_60364-7-712_413_1_1_1_2", "(712.413.1.1.1.2)"},
    {"iec_60364-7-712_444_4", "(712.444.4)"},         {"iec_60364-7-712_536_2_2_1", "(712.536.2.2.1)"},
};

} // namespace PointForms

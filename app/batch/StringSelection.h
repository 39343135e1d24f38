#pragma once

#include <QString>
#include <QVector>

#include <optional>

class QItemSelectionModel;

/// Which strings of a curve file are meant.
struct StringSelection
{
    bool all = true;
    /// The ids of the strings, in their order, when not all are meant.
    QVector<quint32> ids;
};

/// The strings that "all" or a text such as "3,1,7" names. Nothing for a text that is no such list.
std::optional<StringSelection> parseStringSelection(const QString &text);

/// Selects strings in the tree of a curve file as a user does, all at once: in the order given, or in that of
/// the tree. False, after telling, if one of them is not there or if there is none.
bool selectStrings(const StringSelection &wanted, QItemSelectionModel &tree);

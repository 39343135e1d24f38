#pragma once

#include <QHash>
#include <QString>
#include <QVector>

/// What a label is called in another language, and the room it takes there if that is another.
struct FormLabel
{
    QString text;
    QString width;
    QString height;
};

/// Labels of all forms in one language, by their English text.
using FormLabels = QHash<QString, FormLabel>;

FormLabels readFormLabels(const QString &path);

/// A package made from a form, and the ids that differ in it: an empty one means that the item has none.
struct FormRevision
{
    QString package;
    QHash<QString, QString> ids;
};

using FormRevisions = QVector<FormRevision>;

/// The packages of all forms in the order of the table.
FormRevisions readFormRevisions(const QString &path);

/// The packages of one form, the current one first: those listed that bear its name, or just one.
FormRevisions revisionsOfForm(const FormRevisions &all, const QString &form);

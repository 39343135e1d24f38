#pragma once

#include <QString>
#include <QStringList>
#include <QVector>

/// One entry of a catalogue.
struct CatalogueEntry
{
    QString context;
    QString source;
    QString comment; ///< tells apart what reads the same in the source texts
    QString translation;
    QString type; ///< "unfinished", "vanished" or "obsolete", empty when all is well

    /// What finds an entry again: context, source text and comment.
    QString key() const;
    /// For messages of a test: the key and the translation in one line.
    QString description() const;
};

/// The entries of one .ts file.
class Catalogue
{
public:
    /// Reads a file; error() tells why there are no entries.
    explicit Catalogue(const QString &path);

    const QVector<CatalogueEntry> &entries() const { return m_entries; }
    QStringList keys() const;
    QString language() const { return m_language; }
    QString error() const { return m_error; }

private:
    QVector<CatalogueEntry> m_entries;
    QString m_language;
    QString m_error;
};

/// What a translation has to have in common with its source. Each function gives what it finds in a text,
/// so that a text and its translation can be compared.
namespace TextParts {

/// Places for values, %1 and the like, sorted.
QStringList placeholders(const QString &text);
/// The file patterns of a file dialog's filter, "(*.csv)".
QStringList filePatterns(const QString &text);
/// True if a letter, digit or value is marked as accelerator.
bool hasAccelerator(const QString &text);
/// The blanks before the first sign.
QString beginning(const QString &text);
/// What stands behind the last letter, digit or value: full stops, colon, question mark, line ends.
QString ending(const QString &text);
int lineEnds(const QString &text);

} // namespace TextParts

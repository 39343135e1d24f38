#include "tests/translations/Catalogue.h"

#include <QFile>
#include <QRegularExpression>
#include <QXmlStreamReader>

namespace {

CatalogueEntry readMessage(QXmlStreamReader &xml, const QString &context)
{
    CatalogueEntry entry;
    entry.context = context;
    while (xml.readNextStartElement()) {
        const QStringRef name = xml.name();
        if (name == QLatin1String("source")) {
            entry.source = xml.readElementText();
        } else if (name == QLatin1String("comment")) {
            entry.comment = xml.readElementText();
        } else if (name == QLatin1String("translation")) {
            entry.type = xml.attributes().value(QLatin1String("type")).toString();
            entry.translation = xml.readElementText();
        } else {
            xml.skipCurrentElement();
        }
    }
    return entry;
}

QStringList allOf(const QString &text, const QRegularExpression &part)
{
    QStringList found;
    auto matches = part.globalMatch(text);
    while (matches.hasNext())
        found.append(matches.next().captured());
    found.sort();
    return found;
}

} // namespace

QString CatalogueEntry::key() const
{
    return QStringList({context, source, comment}).join(QStringLiteral(" | "));
}

QString CatalogueEntry::description() const
{
    return key() + QStringLiteral(" -> ") + translation;
}

Catalogue::Catalogue(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        m_error = path + QStringLiteral(": ") + file.errorString();
        return;
    }
    QXmlStreamReader xml(&file);
    xml.readNextStartElement();
    m_language = xml.attributes().value(QLatin1String("language")).toString();
    while (xml.readNextStartElement()) {
        QString context;
        while (xml.readNextStartElement()) {
            if (xml.name() == QLatin1String("name"))
                context = xml.readElementText();
            else if (xml.name() == QLatin1String("message"))
                m_entries.append(readMessage(xml, context));
            else
                xml.skipCurrentElement();
        }
    }
    if (xml.hasError()) {
        m_error = path + QStringLiteral(": ") + xml.errorString();
        m_entries.clear();
    }
}

QStringList Catalogue::keys() const
{
    QStringList keys;
    for (const CatalogueEntry &entry : m_entries)
        keys.append(entry.key());
    keys.sort();
    return keys;
}

QStringList TextParts::placeholders(const QString &text)
{
    static const QRegularExpression place(QStringLiteral("%L?[0-9n]+"));
    return allOf(text, place);
}

QStringList TextParts::filePatterns(const QString &text)
{
    static const QRegularExpression pattern(QStringLiteral("\\(\\*[^)]*\\)"));
    return allOf(text, pattern);
}

bool TextParts::hasAccelerator(const QString &text)
{
    static const QRegularExpression mark(QStringLiteral("&(\\w|%\\d)"),
                                         QRegularExpression::UseUnicodePropertiesOption);
    return mark.match(text).hasMatch();
}

QString TextParts::beginning(const QString &text)
{
    static const QRegularExpression blanks(QStringLiteral("^\\s*"));
    return blanks.match(text).captured();
}

QString TextParts::ending(const QString &text)
{
    static const QRegularExpression end(QStringLiteral("[.:;!?\\s]*$"));
    return end.match(text).captured();
}

int TextParts::lineEnds(const QString &text)
{
    return text.count(QLatin1Char('\n'));
}

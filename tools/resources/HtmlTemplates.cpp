#include "tools/resources/HtmlTemplates.h"

#include "tools/resources/FormTables.h"
#include "tools/resources/ResourceFolder.h"

#include <QDir>
#include <QRegularExpression>

#include <algorithm>

namespace {

/// The texts of the source.
const QString sourceFolder = QStringLiteral("reports_en");

bool hasLetters(const QString &text)
{
    return std::any_of(text.begin(), text.end(), [](QChar character) { return character.isLetter(); });
}

/// The source with each text between its tags translated. What stands in front of the body stays.
QString translated(const QString &source, const FormLabels &words)
{
    static const QRegularExpression textBetweenTags(QStringLiteral(">([^<>]+)<"));
    QString result = source;
    int at = result.indexOf(QLatin1String("<body"));
    while (at >= 0) {
        const QRegularExpressionMatch match = textBetweenTags.match(result, at);
        if (!match.hasMatch())
            break;
        const QString text = match.captured(1);
        at = match.capturedEnd(1);
        if (!hasLetters(text))
            continue;
        const auto word = words.constFind(text);
        if (word == words.constEnd())
            throw BuildError(QStringLiteral("no translation of \"%1\"").arg(text));
        result.replace(match.capturedStart(1), text.size(), word->text);
        at += word->text.size() - text.size();
    }
    return result;
}

/// As editors of Windows write it: with a byte-order mark and both characters at the end of a line.
QByteArray asWindowsText(QString text)
{
    text.replace(QLatin1Char('\n'), QLatin1String("\r\n"));
    return QByteArray("\xef\xbb\xbf") + text.toUtf8();
}

} // namespace

void buildHtmlTemplates(const QString &sources, ResourceFolder &target)
{
    const QDir directory(sources);
    const QStringList files = directory.entryList({QStringLiteral("*.html")}, QDir::Files, QDir::Name);
    for (const QString &folder : target.reportFolders()) {
        const QString language = folder.mid(folder.indexOf(QLatin1Char('_')) + 1);
        const QString table = directory.filePath(QStringLiteral("words_%1.tsv").arg(language));
        for (const QString &file : files) {
            QString text = QString::fromUtf8(readSource(directory.filePath(file)));
            if (folder != sourceFolder)
                text = translated(text, readFormLabels(table));
            target.store(folder + QLatin1Char('/') + file, asWindowsText(text));
        }
    }
}

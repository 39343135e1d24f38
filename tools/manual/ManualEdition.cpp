#include "tools/manual/ManualEdition.h"

#include "tools/manual/ManualError.h"

#include <QDir>
#include <QFileInfo>
#include <QSet>
#include <QSettings>

namespace {

/// The words of `words.ini`, each of which must be there.
void readWords(ManualEdition &edition, const QString &path)
{
    QSettings words(path, QSettings::IniFormat);
    words.setIniCodec("UTF-8");
    const struct
    {
        const char *key;
        QString ManualEdition::*word;
    } wanted[] = {
        {"title", &ManualEdition::title},       {"subtitle", &ManualEdition::subtitle},
        {"contents", &ManualEdition::contents}, {"page", &ManualEdition::page},
        {"figure", &ManualEdition::figure},     {"version", &ManualEdition::version},
    };
    for (const auto &one : wanted) {
        edition.*one.word = words.value(QLatin1String(one.key)).toString();
        if ((edition.*one.word).isEmpty())
            throw ManualError(QStringLiteral("%1 has no word \"%2\"").arg(path, QLatin1String(one.key)));
    }
}

QVector<ManualText> textsOf(const ManualBlock &block)
{
    QVector<ManualText> texts{block.text};
    for (const QVector<ManualText> &row : block.rows)
        texts += row;
    return texts;
}

void checkRun(const ManualEdition &edition, const QString &fileName, const ManualRun &run)
{
    const bool leadsOutside = run.link.contains(QLatin1String("://"));
    if (!run.link.isEmpty() && !leadsOutside && resolvedLink(edition, fileName, run.link).isEmpty())
        throw ManualError(
            QStringLiteral("%1/%2: the link \"%3\" leads nowhere").arg(edition.language, fileName, run.link));
    if (!run.icon.isEmpty() && !QFileInfo::exists(run.icon))
        throw ManualError(QStringLiteral("%1/%2: there is no %3").arg(edition.language, fileName, run.icon));
}

void checkChapter(const ManualEdition &edition, const ManualChapter &chapter)
{
    QSet<QString> slugs;
    for (const QString &heading : chapter.headings(6)) {
        if (slugs.contains(headingSlug(heading)))
            throw ManualError(QStringLiteral("%1/%2: two headings read \"%3\"")
                                  .arg(edition.language, chapter.fileName, heading));
        slugs.insert(headingSlug(heading));
    }
    for (const ManualBlock &block : chapter.blocks) {
        if (!block.file.isEmpty() && !QFileInfo::exists(block.file))
            throw ManualError(
                QStringLiteral("%1/%2: there is no %3").arg(edition.language, chapter.fileName, block.file));
        for (const ManualText &text : textsOf(block)) {
            for (const ManualRun &run : text)
                checkRun(edition, chapter.fileName, run);
        }
    }
}

} // namespace

const ManualChapter *ManualEdition::chapter(const QString &fileName) const
{
    for (const ManualChapter &one : chapters) {
        if (one.fileName == fileName)
            return &one;
    }
    return nullptr;
}

ManualEdition readManualEdition(const QString &folder)
{
    const QDir source(folder);
    ManualEdition edition;
    edition.language = source.dirName();
    readWords(edition, source.filePath(QStringLiteral("words.ini")));
    for (const QString &name : source.entryList({QStringLiteral("*.md")}, QDir::Files, QDir::Name))
        edition.chapters.append(readManualChapter(source.filePath(name)));
    if (edition.chapters.isEmpty())
        throw ManualError(QStringLiteral("%1 holds no chapters").arg(folder));
    for (const ManualChapter &chapter : qAsConst(edition.chapters))
        checkChapter(edition, chapter);
    return edition;
}

QString resolvedLink(const ManualEdition &edition, const QString &fromFile, const QString &link)
{
    const QString file = link.section(QLatin1Char('#'), 0, 0);
    const ManualChapter *chapter = edition.chapter(file.isEmpty() ? fromFile : file);
    if (!chapter)
        return {};
    const QString slug = link.section(QLatin1Char('#'), 1);
    if (slug.isEmpty())
        return chapter->fileName + QLatin1Char('#') + headingSlug(chapter->title());
    for (const QString &heading : chapter->headings(6)) {
        if (headingSlug(heading) == slug)
            return chapter->fileName + QLatin1Char('#') + slug;
    }
    return {};
}

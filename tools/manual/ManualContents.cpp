#include "tools/manual/ManualContents.h"

QVector<ContentsEntry> contentsOf(const ManualEdition &edition)
{
    QVector<ContentsEntry> entries;
    for (int chapterNumber = 1; chapterNumber <= edition.chapters.size(); ++chapterNumber) {
        const ManualChapter &chapter = edition.chapters.at(chapterNumber - 1);
        const QStringList headings = chapter.headings(2);
        for (int section = 0; section < headings.size(); ++section) {
            const QString number = section == 0 ? QString::number(chapterNumber)
                                                : QStringLiteral("%1.%2").arg(chapterNumber).arg(section);
            const QString place = chapter.fileName + QLatin1Char('#') + headingSlug(headings.at(section));
            entries.append({anchorName(edition, place), numberedTitle(number, headings.at(section)),
                            section == 0 ? 1 : 2});
        }
    }
    return entries;
}

QString anchorName(const ManualEdition &edition, const QString &resolvedLink)
{
    // Names in a file are to be plain ASCII.
    return edition.language + QLatin1Char('/') +
           QString::fromLatin1(resolvedLink.toUtf8().toPercentEncoding("#"));
}

QString editionAnchor(const ManualEdition &edition)
{
    return edition.language;
}

QString numberedTitle(const QString &number, const QString &title)
{
    return number + QChar(0x2002) + title;
}

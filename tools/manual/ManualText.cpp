#include "tools/manual/ManualText.h"

QString plainText(const ManualText &text)
{
    QString plain;
    for (const ManualRun &run : text)
        plain += run.text;
    return plain;
}

QString headingSlug(const QString &heading)
{
    QString slug;
    for (const QChar c : heading.toLower()) {
        if (c.isLetterOrNumber() || c == QLatin1Char('-') || c == QLatin1Char('_'))
            slug += c;
        else if (c.isSpace())
            slug += QLatin1Char('-');
    }
    return slug;
}

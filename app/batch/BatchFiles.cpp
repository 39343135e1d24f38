#include "app/batch/BatchFiles.h"

#include "app/batch/BatchMessages.h"

#include <QCoreApplication>
#include <QFileInfo>

namespace {

/// The translation context of the batch program's own messages.
struct Text
{
    Q_DECLARE_TR_FUNCTIONS(Batch)
};

} // namespace

bool refuse(const QString &text)
{
    tell(text);
    return false;
}

bool isFree(const QString &path, bool force)
{
    if (QFileInfo::exists(path) && !force)
        return refuse(Text::tr("%1 exists already; --force overwrites it.").arg(path));
    return true;
}

bool isApart(const QString &output, const QString &input)
{
    const QFileInfo out(output);
    const QFileInfo in(input);
    const bool same = out.absoluteFilePath() == in.absoluteFilePath() ||
                      (out.exists() && out.canonicalFilePath() == in.canonicalFilePath());
    return !same || refuse(Text::tr("%1 cannot be input and output at once.").arg(output));
}

bool isReadableFile(const QString &path)
{
    const QFileInfo info(path);
    return (info.isFile() && info.isReadable()) || refuse(Text::tr("%1 cannot be read.").arg(path));
}

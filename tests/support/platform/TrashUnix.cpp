#include "tests/support/TestHome.h"
#include "tests/support/Trash.h"

#include <QDir>

namespace Trash {

void startEmpty()
{
    QDir(TestHome::instance()->path(QStringLiteral("share/Trash"))).removeRecursively();
}

QStringList names()
{
    return QDir(TestHome::instance()->path(QStringLiteral("share/Trash/files")))
        .entryList(QDir::AllEntries | QDir::NoDotAndDotDot, QDir::Name);
}

} // namespace Trash

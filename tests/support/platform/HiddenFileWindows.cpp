#include "tests/support/HiddenFile.h"

#include <qt_windows.h>

void hide(const QString &path)
{
    SetFileAttributesW(path.toStdWString().c_str(), FILE_ATTRIBUTE_HIDDEN);
}

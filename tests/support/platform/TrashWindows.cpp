#include "tests/support/Trash.h"

#include <qt_windows.h>

#include <shlobj.h>

namespace Trash {

namespace {

QStringList there;

QString nameOf(IShellFolder *folder, LPCITEMIDLIST item)
{
    STRRET text = {};
    if (FAILED(folder->GetDisplayNameOf(item, SHGDN_INFOLDER, &text)) || text.uType != STRRET_WSTR)
        return QString();
    const QString name = QString::fromWCharArray(text.pOleStr);
    CoTaskMemFree(text.pOleStr);
    return name;
}

QStringList allNames()
{
    QStringList found;
    LPITEMIDLIST place = nullptr;
    IShellFolder *desktop = nullptr;
    IShellFolder *bin = nullptr;
    IEnumIDList *items = nullptr;
    if (SUCCEEDED(SHGetFolderLocation(nullptr, CSIDL_BITBUCKET, nullptr, 0, &place)) &&
        SUCCEEDED(SHGetDesktopFolder(&desktop)) &&
        SUCCEEDED(desktop->BindToObject(place, nullptr, IID_IShellFolder, reinterpret_cast<void **>(&bin))) &&
        bin->EnumObjects(nullptr, SHCONTF_FOLDERS | SHCONTF_NONFOLDERS, &items) == S_OK) {
        LPITEMIDLIST item = nullptr;
        while (items->Next(1, &item, nullptr) == S_OK) {
            found.append(nameOf(bin, item));
            CoTaskMemFree(item);
        }
        items->Release();
    }
    if (bin)
        bin->Release();
    if (desktop)
        desktop->Release();
    CoTaskMemFree(place);
    return found;
}

} // namespace

void startEmpty()
{
    // Nobody's trash is emptied for a test: what is there already does not count.
    there = allNames();
}

QStringList names()
{
    QStringList found = allNames();
    for (const QString &name : qAsConst(there))
        found.removeOne(name);
    found.sort();
    return found;
}

} // namespace Trash

#include "tests/support/OwnPlaces.h"

#include <qt_windows.h>

namespace {

// The program's settings and the datalogger's.
const wchar_t inUse[] = L"Software\\Varnhold";
const wchar_t setAside[] = L"Software\\Varnhold set aside by tests";

bool exists(const wchar_t *name)
{
    HKEY key = nullptr;
    if (RegOpenKeyExW(HKEY_CURRENT_USER, name, 0, KEY_READ, &key) != ERROR_SUCCESS)
        return false;
    RegCloseKey(key);
    return true;
}

void move(const wchar_t *from, const wchar_t *to)
{
    HKEY target = nullptr;
    RegCreateKeyExW(HKEY_CURRENT_USER, to, 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &target, nullptr);
    if (!target || RegCopyTreeW(HKEY_CURRENT_USER, from, target) != ERROR_SUCCESS)
        qFatal("the user's settings cannot be moved");
    RegCloseKey(target);
    RegDeleteTreeW(HKEY_CURRENT_USER, from);
}

} // namespace

OwnPlaces::OwnPlaces(const QString &)
{
    // A test that broke down has left its own in their place.
    if (exists(setAside))
        RegDeleteTreeW(HKEY_CURRENT_USER, inUse);
    else if (exists(inUse))
        move(inUse, setAside);
}

OwnPlaces::~OwnPlaces()
{
    RegDeleteTreeW(HKEY_CURRENT_USER, inUse);
    if (exists(setAside))
        move(setAside, inUse);
}

#include "app/platform/Platform.h"

#include <QDir>
#include <QFile>
#include <QLibrary>
#include <QPixmap>

#include <qt_windows.h>

#include <initguid.h>
#include <objbase.h>
#include <shellapi.h>
#include <shlobj.h>

#include <vector>

// The toolkit leaves permissions on NTFS alone unless this counter is above zero.
extern Q_CORE_EXPORT int qt_ntfs_permission_lookup;

// Exported by the toolkit's platform integration layer for just this conversion.
Q_GUI_EXPORT QPixmap qt_pixmapFromWinHICON(HICON icon);

namespace Platform {

namespace {

const GUID publicDocumentsId = {0xED4824AF, 0xDCE4, 0x45A8, {0x81, 0xE2, 0xFC, 0x79, 0x65, 0x08, 0x36, 0x34}};
const GUID programDataId = {0x62AB5D82, 0xFDC1, 0x4DC3, {0xA9, 0xDD, 0x07, 0x0D, 0x1D, 0x49, 0x5D, 0x97}};
const GUID knownFolderManagerClass = {
    0x4DF0C730, 0xDF9D, 0x4AE3, {0x91, 0x53, 0xAA, 0x6B, 0x82, 0xE9, 0x79, 0x5A}};
const GUID knownFolderManagerInterface = {
    0x8BE2D872, 0x86AA, 0x4D47, {0xB7, 0x76, 0x32, 0xCC, 0xA4, 0x0C, 0x70, 0x18}};

QString withSlashes(QString path)
{
    return path.replace(QLatin1Char('\\'), QLatin1Char('/'));
}

/// The path of a known folder, or an empty string when the known-folder manager does not tell it.
QString knownFolder(const GUID &id)
{
    const HRESULT initialised = CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    QString path;
    IKnownFolderManager *manager = nullptr;
    if (SUCCEEDED(CoCreateInstance(knownFolderManagerClass, nullptr, CLSCTX_INPROC_SERVER,
                                   knownFolderManagerInterface, reinterpret_cast<void **>(&manager)))) {
        IKnownFolder *folder = nullptr;
        if (SUCCEEDED(manager->GetFolder(id, &folder))) {
            LPWSTR text = nullptr;
            if (SUCCEEDED(folder->GetPath(0, &text))) {
                path = QString::fromWCharArray(text);
                CoTaskMemFree(text);
            }
            folder->Release();
        }
        manager->Release();
    }
    if (SUCCEEDED(initialised))
        CoUninitialize();
    return withSlashes(path);
}

/// The older call, resolved at run time.
QString specialFolder(int number)
{
    using GetSpecialFolderPath = BOOL(WINAPI *)(HWND, LPWSTR, int, BOOL);
    const auto call = reinterpret_cast<GetSpecialFolderPath>(
        QLibrary::resolve(QStringLiteral("shell32"), "SHGetSpecialFolderPathW"));
    wchar_t buffer[MAX_PATH] = {};
    if (!call || !call(nullptr, buffer, number, FALSE))
        return QString();
    return withSlashes(QString::fromWCharArray(buffer));
}

} // namespace

QString publicDocumentsFolder()
{
    static QString cached;
    if (cached.isEmpty())
        cached = knownFolder(publicDocumentsId);
    if (cached.isEmpty())
        cached = specialFolder(46);
    return cached;
}

QString programDataFolder(const QString &)
{
    static QString cached;
    if (cached.isEmpty())
        cached = knownFolder(programDataId);
    if (cached.isEmpty())
        cached = specialFolder(35);
    return cached.isEmpty() ? QStringLiteral("C:/temp/qt-common") : cached;
}

QStringList moveToRecycleBin(const QStringList &paths, bool allowUndo)
{
    if (paths.isEmpty())
        return QStringList();
    std::vector<wchar_t> buffer;
    for (const QString &path : paths) {
        const std::wstring native = QDir::toNativeSeparators(path).toStdWString();
        buffer.insert(buffer.end(), native.begin(), native.end());
        buffer.push_back(0);
    }
    buffer.push_back(0);

    SHFILEOPSTRUCTW operation = {};
    operation.wFunc = FO_DELETE;
    operation.pFrom = buffer.data();
    operation.fFlags = FOF_MULTIDESTFILES | FOF_WANTNUKEWARNING;
    if (allowUndo)
        operation.fFlags |= FOF_ALLOWUNDO;
    // The shell shows its own dialogs; there is nothing to add to them.
    SHFileOperationW(&operation);
    return QStringList();
}

bool recycleBinAsks()
{
    return true;
}

QIcon shellIcon(const QString &path)
{
    const std::wstring native = QDir::toNativeSeparators(path).toStdWString();
    SHFILEINFOW info = {};
    if (!SHGetFileInfoW(native.c_str(), 0, &info, sizeof info, SHGFI_ICON) || !info.hIcon)
        return QIcon();
    const QPixmap pixmap = qt_pixmapFromWinHICON(info.hIcon);
    DestroyIcon(info.hIcon);
    return QIcon(pixmap);
}

void shareWithAllUsers(const QString &path)
{
    ++qt_ntfs_permission_lookup;
    QFile::setPermissions(path, QFile::Permissions(0x6666));
    --qt_ntfs_permission_lookup;
}

QString executableSuffix()
{
    return QStringLiteral(".exe");
}

QString listSeparator()
{
    // LOCALE_SLIST is four characters long at most, with its end.
    wchar_t separator[8] = {};
    constexpr int room = sizeof separator / sizeof separator[0];
    if (GetLocaleInfoEx(LOCALE_NAME_USER_DEFAULT, LOCALE_SLIST, separator, room) <= 0)
        return QString();
    return QString::fromWCharArray(separator);
}

void doWithoutDisplay()
{
    // Windows always has a desktop to start on.
}

} // namespace Platform

// Under Wine, stands for a program of the machine that Wine runs on: "pdftotext.exe" runs pdftotext there, with
// the same arguments, names of files translated. Wine starts such programs by itself, but nobody can wait for
// their end.

#include <windows.h>

#include <cstdio>
#include <cstdlib>
#include <string>

#include <fcntl.h>
#include <io.h>

namespace {

std::string utf8(const std::wstring &text)
{
    std::string result(text.size() * 3, '\0');
    const int length = WideCharToMultiByte(CP_UTF8, 0, text.data(), static_cast<int>(text.size()), &result[0],
                                           static_cast<int>(result.size()), nullptr, nullptr);
    result.resize(static_cast<size_t>(length));
    return result;
}

/// What Wine calls a file, as the machine calls it.
std::string nativeName(const std::wstring &path)
{
    using Translate = char *(*)(const wchar_t *);
    const auto address = GetProcAddress(GetModuleHandleW(L"kernel32"), "wine_get_unix_file_name");
    const auto translate = reinterpret_cast<Translate>(reinterpret_cast<void *>(address));
    char *name = translate ? translate(path.c_str()) : nullptr;
    std::string result = name ? name : "";
    HeapFree(GetProcessHeap(), 0, name);
    return result;
}

bool isFileName(const std::wstring &argument)
{
    return argument.size() > 2 && argument[1] == L':' && (argument[2] == L'/' || argument[2] == L'\\');
}

/// For the shell.
std::string quoted(const std::string &text)
{
    std::string result = "'";
    for (const char each : text)
        result += each == '\'' ? std::string("'\\''") : std::string(1, each);
    return result + "'";
}

std::wstring programName(const std::wstring &path)
{
    const std::wstring name = path.substr(path.find_last_of(L"/\\") + 1);
    return name.substr(0, name.rfind(L".exe"));
}

void writeScript(const std::wstring &path, const std::string &text)
{
    if (std::FILE *file = _wfopen(path.c_str(), L"wb")) {
        std::fwrite(text.data(), 1, text.size(), file);
        std::fclose(file);
    }
}

/// What a file holds; empty while it is not there.
std::string contents(const std::wstring &path)
{
    std::string result;
    if (std::FILE *file = _wfopen(path.c_str(), L"rb")) {
        char buffer[4096];
        while (const size_t count = std::fread(buffer, 1, sizeof buffer, file))
            result.append(buffer, count);
        std::fclose(file);
    }
    return result;
}

bool start(const std::wstring &script)
{
    STARTUPINFOW startup = {};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION process = {};
    std::wstring line = L"sh \"" + script + L"\"";
    return CreateProcessW(L"\\\\?\\unix\\bin\\sh", &line[0], nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup,
                          &process) != 0;
}

} // namespace

int wmain(int argc, wchar_t **argv)
{
    wchar_t folder[MAX_PATH] = {};
    GetTempPathW(MAX_PATH, folder);
    const std::wstring base = folder + std::wstring(L"native-") + std::to_wstring(GetCurrentProcessId());
    const std::string native = nativeName(base);

    std::string command = quoted(utf8(programName(argv[0])));
    for (int i = 1; i < argc; ++i)
        command += ' ' + quoted(isFileName(argv[i]) ? nativeName(argv[i]) : utf8(argv[i]));
    writeScript(base, command + " >" + quoted(native + ".out") + " 2>" + quoted(native + ".err") + " </dev/null\n" +
                          "echo $? >" + quoted(native + ".part") + "\n" + "mv " + quoted(native + ".part") + ' ' +
                          quoted(native + ".code") + '\n');
    if (!start(std::wstring(native.begin(), native.end())))
        return 127;
    std::string code;
    while (code.empty()) {
        Sleep(5);
        code = contents(base + L".code");
    }
    const std::string output = contents(base + L".out");
    const std::string errors = contents(base + L".err");
    _setmode(_fileno(stdout), _O_BINARY);
    _setmode(_fileno(stderr), _O_BINARY);
    std::fwrite(output.data(), 1, output.size(), stdout);
    std::fwrite(errors.data(), 1, errors.size(), stderr);
    for (const wchar_t *suffix : {L"", L".out", L".err", L".code"})
        DeleteFileW((base + suffix).c_str());
    return std::atoi(code.c_str());
}

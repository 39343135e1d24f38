#include "tests/support/TrashQuestion.h"

#include <qt_windows.h>

#include <atomic>
#include <thread>

/// Looks for the shell's dialog from a thread of its own: the dialog keeps the one that shows it.
class TrashQuestion::Asked
{
public:
    Asked() : m_thread([this] { watch(); }) {}
    ~Asked()
    {
        m_done = true;
        m_thread.join();
    }
    int times() const { return m_times; }

private:
    void watch()
    {
        while (!m_done) {
            EnumWindows(&Asked::look, reinterpret_cast<LPARAM>(this));
            Sleep(20);
        }
    }

    static BOOL CALLBACK look(HWND window, LPARAM self)
    {
        DWORD process = 0;
        GetWindowThreadProcessId(window, &process);
        wchar_t name[16] = {};
        GetClassNameW(window, name, 16);
        const HWND yes = GetDlgItem(window, IDYES);
        auto *asked = reinterpret_cast<Asked *>(self);
        if (!IsWindowVisible(asked->m_answered))
            asked->m_answered = nullptr;
        if (process != GetCurrentProcessId() || wcscmp(name, L"#32770") != 0 || !IsWindowVisible(window) || !yes)
            return TRUE;
        if (window != asked->m_answered) {
            asked->m_answered = window;
            ++asked->m_times;
            PostMessageW(window, WM_COMMAND, IDYES, reinterpret_cast<LPARAM>(yes));
        }
        return FALSE;
    }

    std::atomic<bool> m_done{false};
    std::atomic<int> m_times{0};
    HWND m_answered = nullptr;
    std::thread m_thread;
};

TrashQuestion::TrashQuestion(BoxWatcher &, const QString &) : m_asked(std::make_unique<Asked>()) {}

TrashQuestion::~TrashQuestion() = default;

int TrashQuestion::timesAsked() const
{
    return m_asked->times();
}

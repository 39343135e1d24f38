#include "tests/support/UnreadableFile.h"

#include <QtTest>

#include <qt_windows.h>

/// Who opens a file without sharing it has it alone.
class UnreadableFile::Holder
{
public:
    explicit Holder(const QString &path)
        : m_file(CreateFileW(path.toStdWString().c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr))
    {
        QVERIFY(m_file != INVALID_HANDLE_VALUE);
    }
    ~Holder() { CloseHandle(m_file); }
    Holder(const Holder &) = delete;
    Holder &operator=(const Holder &) = delete;

private:
    HANDLE m_file;
};

UnreadableFile::UnreadableFile(const QString &path) : m_holder(std::make_unique<Holder>(path)) {}

UnreadableFile::~UnreadableFile() = default;

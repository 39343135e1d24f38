#include "tests/support/UnreadableFile.h"

#include <QtTest>

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

/// A socket is there and cannot be read as a file.
class UnreadableFile::Holder
{
public:
    explicit Holder(const QString &path) : m_socket(socket(AF_UNIX, SOCK_STREAM, 0))
    {
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        qstrncpy(address.sun_path, path.toLocal8Bit().constData(), sizeof address.sun_path);
        QCOMPARE(bind(m_socket, reinterpret_cast<const sockaddr *>(&address), sizeof address), 0);
    }
    ~Holder() { close(m_socket); }
    Holder(const Holder &) = delete;
    Holder &operator=(const Holder &) = delete;

private:
    int m_socket;
};

UnreadableFile::UnreadableFile(const QString &path) : m_holder(std::make_unique<Holder>(path)) {}

UnreadableFile::~UnreadableFile() = default;

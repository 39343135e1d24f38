#pragma once

#include <QString>

#include <memory>

/// For the life of the object there is a file that nobody can read, not even the superuser.
class UnreadableFile
{
public:
    explicit UnreadableFile(const QString &path);
    ~UnreadableFile();
    UnreadableFile(const UnreadableFile &) = delete;
    UnreadableFile &operator=(const UnreadableFile &) = delete;

private:
    class Holder;
    std::unique_ptr<Holder> m_holder;
};

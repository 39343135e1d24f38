#pragma once

#include <memory>

/// For the life of the object no file may grow beyond some bytes, which is what a disk without room comes to.
class SmallFiles
{
public:
    explicit SmallFiles(int bytes);
    ~SmallFiles();
    SmallFiles(const SmallFiles &) = delete;
    SmallFiles &operator=(const SmallFiles &) = delete;

private:
    class Limit;
    std::unique_ptr<Limit> m_limit;
};

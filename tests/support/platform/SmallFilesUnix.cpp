#include "tests/support/SmallFiles.h"

#include <QtTest>

#include <csignal>

#include <sys/resource.h>

class SmallFiles::Limit
{
public:
    explicit Limit(int bytes)
    {
        std::signal(SIGXFSZ, SIG_IGN);
        QCOMPARE(getrlimit(RLIMIT_FSIZE, &m_before), 0);
        rlimit small = m_before;
        small.rlim_cur = rlim_t(bytes);
        QCOMPARE(setrlimit(RLIMIT_FSIZE, &small), 0);
    }
    ~Limit() { setrlimit(RLIMIT_FSIZE, &m_before); }
    Limit(const Limit &) = delete;
    Limit &operator=(const Limit &) = delete;

private:
    rlimit m_before{};
};

SmallFiles::SmallFiles(int bytes) : m_limit(std::make_unique<Limit>(bytes)) {}

SmallFiles::~SmallFiles() = default;

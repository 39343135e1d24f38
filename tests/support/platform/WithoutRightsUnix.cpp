#include "tests/support/WithoutRights.h"

#include <QtTest>

#include <unistd.h>

namespace {

bool isRoot()
{
    return getuid() == 0;
}

} // namespace

WithoutRights::WithoutRights()
{
    constexpr uid_t nobody = 65534;
    if (isRoot() && seteuid(nobody) != 0)
        QTest::qFail("cannot become nobody", __FILE__, __LINE__);
}

WithoutRights::~WithoutRights()
{
    if (isRoot() && seteuid(0) != 0)
        qFatal("cannot become root again");
}

#include "tests/support/WithoutRights.h"

// A file's mark as read-only holds for administrators, too.
WithoutRights::WithoutRights() = default;

WithoutRights::~WithoutRights() = default;

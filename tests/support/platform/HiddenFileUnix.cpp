#include "tests/support/HiddenFile.h"

void hide(const QString &) {}

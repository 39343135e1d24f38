#pragma once

#include <functional>

namespace IVCurve {

/// Does the work of a slot and shows an exception that it throws, so that none passes into the event loop.
/// False if there was one; what had been done by then stays done.
bool guarded(const std::function<void()> &work);

} // namespace IVCurve

// Waiting for what the event loop or another process does.
#pragma once

#include <functional>

namespace kor::veltrano::daemons {

// Runs the event loop of this thread until the condition holds; false when it never does. Half a
// minute is what a loaded machine under a sanitizer may need at the very most.
bool waitUntil(const std::function<bool()>& condition);

} // namespace kor::veltrano::daemons

// Waiting for a condition while events are handled. Free functions.
#pragma once

#include <functional>

namespace kor::veltrano::sim {

// Handles events until the condition holds; false where it does not within a generous deadline.
bool waitUntil(const std::function<bool()>& condition);

} // namespace kor::veltrano::sim

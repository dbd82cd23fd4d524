// The HTTP library's thread pool: its size, and its end.
#pragma once

#include <chrono>

namespace kor::veltrano::daemons {

// Gives the pool its size. Once, before the library is used for anything else.
void initializeThreadPool();

// Returns when the pool has nothing left to do; false where it is still busy after the timeout. The
// library forgets what is queued when the process ends: tasks that never run are never freed. Only
// where nothing new can come in. Not on a thread of the pool.
bool drainThreadPool(std::chrono::milliseconds timeout);

} // namespace kor::veltrano::daemons

// The HTTP library's thread pool: its size, and its end.
#pragma once

#include <chrono>
#include <functional>
#include <memory>

namespace kor::veltrano::daemons {

// Gives the pool its size. Once, before the library is used for anything else.
void initializeThreadPool();

// Returns when the pool has nothing left to do; false where it is still busy after the timeout. The
// library forgets what is queued when the process ends: tasks that never run are never freed. Only
// where nothing new can come in. Not on a thread of the pool.
bool drainThreadPool(std::chrono::milliseconds timeout);

class ThreadPoolMeeting;

// Leaves the pool a single thread for as long as it lives, so that no task of the library comes in
// the middle of another one. Not on a thread of the pool.
class OneThreadOfPool
{
public:
    // The other threads may be busy: none is waited for longer than the timeout.
    explicit OneThreadOfPool(std::chrono::milliseconds timeout);
    ~OneThreadOfPool();
    OneThreadOfPool(const OneThreadOfPool&) = delete;
    OneThreadOfPool& operator=(const OneThreadOfPool&) = delete;

    // Does the work on that thread: until it is done, nothing else runs in the pool. Throws what
    // the work throws.
    void run(const std::function<void()>& work);

private:
    std::shared_ptr<ThreadPoolMeeting> meeting;
};

} // namespace kor::veltrano::daemons

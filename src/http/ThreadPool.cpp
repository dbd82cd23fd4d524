#include "http/ThreadPool.h"

#include <pplx/threadpool.h>

#include <condition_variable>
#include <memory>
#include <mutex>

namespace kor::veltrano::daemons {

namespace {

// The library's own default: as many requests may wait for slow commands before others wait too.
constexpr int threadCount = 40;

// A task may queue another one before it ends. No chain of the library's tasks is longer than this.
constexpr int generations = 4;

// Where all threads of the pool meet. They can only do so when none of them has anything else to
// do, so everything that was queued before has ended then.
class MeetingPoint
{
public:
    void arriveAndWait()
    {
        std::unique_lock lock(mutex);
        ++arrived;
        changed.notify_all();
        changed.wait(lock, [this] { return arrived >= threadCount || isCalledOff; });
    }

    // Calls the meeting off, and lets everybody go, when it has not come about in time.
    bool waitUntil(std::chrono::steady_clock::time_point deadline)
    {
        std::unique_lock lock(mutex);
        const bool haveAllMet =
            changed.wait_until(lock, deadline, [this] { return arrived >= threadCount; });
        isCalledOff = true;
        changed.notify_all();
        return haveAllMet;
    }

private:
    std::mutex mutex;
    std::condition_variable changed;
    int arrived = 0;
    bool isCalledOff = false;
};

bool holdMeeting(std::chrono::steady_clock::time_point deadline)
{
    const auto meetingPoint = std::make_shared<MeetingPoint>();
    for (int thread = 0; thread < threadCount; ++thread) {
        crossplat::threadpool::shared_instance().service().post(
            [meetingPoint] { meetingPoint->arriveAndWait(); });
    }
    return meetingPoint->waitUntil(deadline);
}

} // namespace

void initializeThreadPool()
{
    crossplat::threadpool::initialize_with_threads(threadCount);
}

bool drainThreadPool(std::chrono::milliseconds timeout)
{
    const auto deadline = std::chrono::steady_clock::now() + timeout;
    for (int generation = 0; generation < generations; ++generation) {
        if (!holdMeeting(deadline)) {
            return false;
        }
    }
    return true;
}

} // namespace kor::veltrano::daemons

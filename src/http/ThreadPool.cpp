#include "http/ThreadPool.h"

#include <pplx/pplxtasks.h>
#include <pplx/threadpool.h>

#include <condition_variable>
#include <future>
#include <mutex>

namespace kor::veltrano::daemons {

namespace {

// The library's own default: as many requests may wait for slow commands before others wait too.
constexpr int threadCount = 40;

// A task may queue another one before it ends. No chain of the library's tasks is longer than this.
constexpr int generations = 4;

} // namespace

// The library's interface has no virtual destructor; it is deleted as what it was made.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"
// Runs a task's continuation at once on the thread that ends the task. By default each of them
// wakes another thread of the pool, several in a request, which takes longer than what most of them
// do. A chain of continuations that follow one another without waiting goes on in the pool where it
// is long, as a body may come in any number of pieces and a stack is short.
class ImmediateScheduler : public pplx::scheduler_interface
{
public:
    virtual ~ImmediateScheduler() = default;

    void schedule(pplx::TaskProc_t task, void* parameter) override
    {
        thread_local int depth = 0;
        if (depth == maximumDepth) {
            crossplat::threadpool::shared_instance().service().post(
                [task, parameter] { task(parameter); });
            return;
        }
        ++depth;
        task(parameter);
        --depth;
    }

private:
    static constexpr int maximumDepth = 8;
};
#pragma GCC diagnostic pop

// Where threads of the pool meet and wait until the meeting is over. A thread can only come when it
// has nothing else to do.
class ThreadPoolMeeting
{
public:
    void arriveAndWait()
    {
        std::unique_lock lock(mutex);
        ++arrived;
        changed.notify_all();
        changed.wait(lock, [this] { return isOver; });
    }

    bool waitForThreads(int count, std::chrono::steady_clock::time_point deadline)
    {
        std::unique_lock lock(mutex);
        return changed.wait_until(lock, deadline, [this, count] { return arrived >= count; });
    }

    void end()
    {
        const std::lock_guard lock(mutex);
        isOver = true;
        changed.notify_all();
    }

private:
    std::mutex mutex;
    std::condition_variable changed;
    int arrived = 0;
    bool isOver = false;
};

namespace {

std::shared_ptr<ThreadPoolMeeting> callMeeting(int threads)
{
    auto meeting = std::make_shared<ThreadPoolMeeting>();
    for (int thread = 0; thread < threads; ++thread) {
        crossplat::threadpool::shared_instance().service().post(
            [meeting] { meeting->arriveAndWait(); });
    }
    return meeting;
}

bool holdMeeting(std::chrono::steady_clock::time_point deadline)
{
    const auto meeting = callMeeting(threadCount);
    const bool haveAllMet = meeting->waitForThreads(threadCount, deadline);
    meeting->end();
    return haveAllMet;
}

} // namespace

void initializeThreadPool()
{
    crossplat::threadpool::initialize_with_threads(threadCount);
    pplx::set_ambient_scheduler(std::make_shared<ImmediateScheduler>());
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

OneThreadOfPool::OneThreadOfPool(std::chrono::milliseconds timeout)
    : meeting(callMeeting(threadCount - 1))
{
    meeting->waitForThreads(threadCount - 1, std::chrono::steady_clock::now() + timeout);
}

OneThreadOfPool::~OneThreadOfPool()
{
    meeting->end();
}

void OneThreadOfPool::run(const std::function<void()>& work)
{
    const auto task = std::make_shared<std::packaged_task<void()>>(work);
    std::future<void> done = task->get_future();
    crossplat::threadpool::shared_instance().service().post([task] { (*task)(); });
    done.get();
}

} // namespace kor::veltrano::daemons

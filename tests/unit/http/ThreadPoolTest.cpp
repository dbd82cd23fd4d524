#include "http/ThreadPool.h"

#include <gtest/gtest.h>
#include <pplx/pplxtasks.h>
#include <pplx/threadpool.h>

#include <algorithm>
#include <condition_variable>
#include <mutex>
#include <stdexcept>
#include <thread>

using namespace kor::veltrano::daemons;
using namespace std::chrono_literals;

namespace {

// The pool can be given its size only once a process.
class ThreadPoolTest : public testing::Test
{
protected:
    static void SetUpTestSuite() { initializeThreadPool(); }
};

// Tasks that take a while, and the most of them that were at work at the same time.
class Tasks
{
public:
    void post(int count)
    {
        expected += count;
        for (int task = 0; task < count; ++task) {
            crossplat::threadpool::shared_instance().service().post([this] { work(); });
        }
    }

    bool waitUntilDone()
    {
        std::unique_lock lock(mutex);
        return changed.wait_for(lock, 20s, [this] { return done == expected; });
    }

    int doneSoFar()
    {
        const std::lock_guard lock(mutex);
        return done;
    }

    int mostAtOnce()
    {
        const std::lock_guard lock(mutex);
        return most;
    }

private:
    void work()
    {
        {
            const std::lock_guard lock(mutex);
            most = std::max(most, ++atWork);
        }
        std::this_thread::sleep_for(5ms);
        const std::lock_guard lock(mutex);
        --atWork;
        ++done;
        changed.notify_all();
    }

    std::mutex mutex;
    std::condition_variable changed;
    int expected = 0;
    int done = 0;
    int atWork = 0;
    int most = 0;
};

} // namespace

TEST_F(ThreadPoolTest, HasManyTasksAtWorkAtOnceByItself)
{
    Tasks tasks;
    tasks.post(80);
    ASSERT_TRUE(tasks.waitUntilDone());
    EXPECT_GT(tasks.mostAtOnce(), 1);
}

TEST_F(ThreadPoolTest, WorksOnOneTaskAfterTheOtherWhileOneThreadIsLeft)
{
    Tasks tasks;
    {
        const OneThreadOfPool oneThread(20s);
        tasks.post(20);
        ASSERT_TRUE(tasks.waitUntilDone());
        EXPECT_EQ(tasks.mostAtOnce(), 1);
    }
    tasks.post(80);
    ASSERT_TRUE(tasks.waitUntilDone());
    EXPECT_GT(tasks.mostAtOnce(), 1);
}

TEST_F(ThreadPoolTest, RunsNothingElseUntilTheWorkOfTheOneThreadIsDone)
{
    Tasks tasks;
    {
        OneThreadOfPool oneThread(20s);
        int doneMeanwhile = -1;
        std::thread::id thread;
        oneThread.run([&] {
            thread = std::this_thread::get_id();
            tasks.post(20);
            std::this_thread::sleep_for(50ms);
            doneMeanwhile = tasks.doneSoFar();
        });
        EXPECT_EQ(doneMeanwhile, 0);
        EXPECT_NE(thread, std::this_thread::get_id());
    }
    EXPECT_TRUE(tasks.waitUntilDone());
}

TEST_F(ThreadPoolTest, ThrowsWhatTheWorkOfTheOneThreadThrows)
{
    OneThreadOfPool oneThread(20s);
    EXPECT_THROW(oneThread.run([] { throw std::out_of_range("expected"); }), std::out_of_range);
}

TEST_F(ThreadPoolTest, IsDrainedWhenEverythingThatWasQueuedIsDone)
{
    Tasks tasks;
    tasks.post(200);
    EXPECT_TRUE(drainThreadPool(20s));
    EXPECT_EQ(tasks.doneSoFar(), 200);
}

TEST_F(ThreadPoolTest, IsNotDrainedWhileATaskIsStillAtWork)
{
    std::mutex held;
    {
        const std::lock_guard lock(held);
        crossplat::threadpool::shared_instance().service().post(
            [&held] { const std::lock_guard untilReleased(held); });
        EXPECT_FALSE(drainThreadPool(50ms));
    }
    EXPECT_TRUE(drainThreadPool(20s));
}

TEST_F(ThreadPoolTest, AContinuationRunsOnTheThreadThatEndsItsTask)
{
    const pplx::task_completion_event<void> event;
    std::thread::id thread;
    const auto continuation =
        pplx::create_task(event).then([&thread] { thread = std::this_thread::get_id(); });
    event.set();
    continuation.wait();
    EXPECT_EQ(thread, std::this_thread::get_id());
}

// A body may come in any number of pieces, and each is a continuation of the one before.
TEST_F(ThreadPoolTest, AChainOfAnyLengthFitsOnTheStack)
{
    constexpr int length = 200'000;
    const pplx::task_completion_event<int> event;
    pplx::task<int> chain(event);
    for (int link = 0; link < length; ++link) {
        chain = chain.then([](int number) { return number + 1; });
    }
    event.set(0);
    EXPECT_EQ(chain.get(), length);
}

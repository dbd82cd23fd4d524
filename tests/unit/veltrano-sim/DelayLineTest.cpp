#include "DelayLine.h"

#include "support/waiting.h"

#include <gtest/gtest.h>
#include <string>

using namespace kor::veltrano::sim;

TEST(DelayLineTest, DoesTheWorkAtOnceWithoutADelay)
{
    DelayLine line;
    bool isDone = false;
    line.push(0, 10, [&isDone] { isDone = true; });
    EXPECT_TRUE(isDone);
    EXPECT_EQ(line.waitingBytes(), 0);
}

TEST(DelayLineTest, DoesTheWorkAfterItsDelay)
{
    DelayLine line;
    QElapsedTimer clock;
    clock.start();
    qint64 doneMs = -1;
    line.push(60, 10, [&doneMs, &clock] { doneMs = clock.elapsed(); });
    EXPECT_EQ(line.waitingBytes(), 10);
    ASSERT_TRUE(waitUntil([&doneMs] { return doneMs >= 0; }));
    EXPECT_GE(doneMs, 60);
    EXPECT_EQ(line.waitingBytes(), 0);
}

TEST(DelayLineTest, KeepsEachPieceOfWorkForItsOwnDelay)
{
    DelayLine line;
    QElapsedTimer clock;
    clock.start();
    qint64 doneMs = -1;
    line.push(10, 1, [] {});
    line.push(90, 1, [&doneMs, &clock] { doneMs = clock.elapsed(); });
    ASSERT_TRUE(waitUntil([&doneMs] { return doneMs >= 0; }));
    EXPECT_GE(doneMs, 90);
}

TEST(DelayLineTest, KeepsTheOrderWhenTheDelayBecomesShorter)
{
    DelayLine line;
    std::string order;
    line.push(50, 1, [&order] { order += 'a'; });
    line.push(10, 1, [&order] { order += 'b'; });
    line.push(0, 1, [&order] { order += 'c'; });
    EXPECT_EQ(order, "");
    ASSERT_TRUE(waitUntil([&order] { return order.size() == 3; }));
    EXPECT_EQ(order, "abc");
}

TEST(DelayLineTest, ForgetsItsWorkWhenCleared)
{
    DelayLine line;
    std::string order;
    line.push(10, 1, [&order] { order += 'a'; });
    line.clear();
    EXPECT_EQ(line.waitingBytes(), 0);
    line.push(20, 1, [&order] { order += 'b'; });
    ASSERT_TRUE(waitUntil([&order] { return !order.empty(); }));
    EXPECT_EQ(order, "b");
}

TEST(DelayLineTest, MayBeClearedByItsOwnWork)
{
    DelayLine line;
    bool isDone = false;
    line.push(10, 1, [&line, &isDone] {
        line.clear();
        isDone = true;
    });
    line.push(10, 1, [] { FAIL() << "this work was forgotten"; });
    EXPECT_TRUE(waitUntil([&isDone] { return isDone; }));
    EXPECT_EQ(line.waitingBytes(), 0);
}

#include "robot/IdleCountdown.h"

#include <gtest/gtest.h>

#include <thread>

namespace kor::veltrano::daemons {
namespace {

// The number of the tick, from 1 on, that ends the countdown; 0 where none of ten does.
int endingTick(IdleCountdown& countdown)
{
    int ending = 0;
    for (int tick = 1; tick <= 10; ++tick) {
        if (countdown.tick()) {
            EXPECT_EQ(ending, 0) << "ended twice";
            ending = tick;
        }
    }
    return ending;
}

TEST(IdleCountdownTest, IsIdleBeforeTheFirstRestart)
{
    IdleCountdown countdown;
    EXPECT_EQ(endingTick(countdown), 0);
}

TEST(IdleCountdownTest, EndsOnceWithItsLastTick)
{
    IdleCountdown countdown;
    countdown.restart(5);
    EXPECT_EQ(endingTick(countdown), 5);
    EXPECT_EQ(endingTick(countdown), 0);
}

TEST(IdleCountdownTest, ARestartBeginsAnew)
{
    IdleCountdown countdown;
    countdown.restart(5);
    for (int tick = 0; tick < 4; ++tick) {
        EXPECT_FALSE(countdown.tick());
    }
    countdown.restart(5);
    EXPECT_EQ(endingTick(countdown), 5);
}

TEST(IdleCountdownTest, NoRestartIsLostToATickAtTheSameTime)
{
    for (int round = 0; round < 2000; ++round) {
        IdleCountdown countdown;
        countdown.restart(1);
        std::thread request([&countdown] { countdown.restart(5); });
        countdown.tick();
        request.join();
        EXPECT_GE(endingTick(countdown), 4) << "the restart has been lost";
    }
}

} // namespace
} // namespace kor::veltrano::daemons

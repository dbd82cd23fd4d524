#include "SimulationClock.h"

#include "support/RawClient.h"
#include "support/TestRobot.h"
#include "support/waiting.h"

#include <QElapsedTimer>

#include <gtest/gtest.h>

using namespace kor::veltrano::sim;

TEST(SimulationClockTest, LetsTheSimulationFollowTheRealTime)
{
    TestRobot robot;
    QElapsedTimer realTime;
    realTime.start();
    const SimulationClock clock(robot.simulation, robot.server);
    ASSERT_TRUE(waitUntil([&robot] { return robot.simulation.timeS() >= 0.3; }));
    EXPECT_GE(static_cast<double>(realTime.elapsed()), 299);
}

TEST(SimulationClockTest, TellsClientsWhatIsNew)
{
    TestRobot robot;
    const SimulationClock clock(robot.simulation, robot.server);
    RawClient client(robot.port());
    client.open();
    const int first =
        client.nextOf(QStringLiteral("odometry.readings"))["params"]["sequence"].toInt();
    const int second =
        client.nextOf(QStringLiteral("odometry.readings"))["params"]["sequence"].toInt();
    EXPECT_EQ(second, first + 1);
}

TEST(SimulationClockTest, CatchesUpAtOnceWhenAsked)
{
    TestRobot robot;
    SimulationClock clock(robot.simulation, robot.server);
    QElapsedTimer realTime;
    realTime.start();
    while (realTime.elapsed() < 30) {
        // Without the event loop only catchUp() can step.
    }
    clock.catchUp();
    EXPECT_GE(robot.simulation.timeS(), 0.03 - 1e-9);
}

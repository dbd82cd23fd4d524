#include "Drive.h"

#include <cmath>
#include <gtest/gtest.h>

using namespace kor::veltrano::sim;

namespace {

constexpr double stepS = 0.01;

void run(Drive& drive, double seconds)
{
    for (int step = 0; step < seconds / stepS; ++step) {
        drive.step(stepS);
    }
}

} // namespace

TEST(DriveTest, StandsStillUntilItIsCommanded)
{
    Drive drive;
    run(drive, 1);
    EXPECT_DOUBLE_EQ(drive.velocity().vx, 0);
    EXPECT_DOUBLE_EQ(drive.velocity().omega, 0);
}

TEST(DriveTest, SpeedsUpNoFasterThanItsLimit)
{
    Drive drive;
    drive.command({2, 0, 0});
    drive.step(stepS);
    EXPECT_NEAR(drive.velocity().vx, Drive::accelerationMPerS2 * stepS, 1e-12);
    run(drive, 0.2);
    EXPECT_NEAR(drive.velocity().vx, Drive::accelerationMPerS2 * 0.21, 1e-9);
}

TEST(DriveTest, SlowsDownNoFasterThanItsLimit)
{
    Drive drive;
    drive.force({1, 0, 0});
    drive.step(stepS);
    EXPECT_NEAR(drive.velocity().vx, 1 - Drive::accelerationMPerS2 * stepS, 1e-12);
    run(drive, 2);
    EXPECT_DOUBLE_EQ(drive.velocity().vx, 0);
}

TEST(DriveTest, TurnsUpNoFasterThanItsLimit)
{
    Drive drive;
    drive.command({0, 0, -3});
    drive.step(stepS);
    EXPECT_NEAR(drive.velocity().omega, -Drive::accelerationRadPerS2 * stepS, 1e-12);
    run(drive, 1);
    EXPECT_DOUBLE_EQ(drive.velocity().omega, -3);
}

TEST(DriveTest, TheLimitHoldsForTheWholeVectorAndNotForEachAxis)
{
    Drive drive;
    drive.command({2, 2, 0});
    drive.step(stepS);
    const double gained = std::hypot(drive.velocity().vx, drive.velocity().vy);
    EXPECT_NEAR(gained, Drive::accelerationMPerS2 * stepS, 1e-12);
}

TEST(DriveTest, KeepsACommandedVelocityForEver)
{
    Drive drive;
    drive.command({0.5, -0.25, 1});
    run(drive, 600);
    EXPECT_DOUBLE_EQ(drive.velocity().vx, 0.5);
    EXPECT_DOUBLE_EQ(drive.velocity().vy, -0.25);
    EXPECT_DOUBLE_EQ(drive.velocity().omega, 1);
}

TEST(DriveTest, ScalesACommandBeyondItsSpeedDownInItsDirection)
{
    Drive drive;
    drive.command({30, 40, -100});
    run(drive, 5);
    EXPECT_NEAR(drive.velocity().vx, Drive::maxSpeedMPerS * 0.6, 1e-9);
    EXPECT_NEAR(drive.velocity().vy, Drive::maxSpeedMPerS * 0.8, 1e-9);
    EXPECT_DOUBLE_EQ(drive.velocity().omega, -Drive::maxOmegaRadPerS);
    EXPECT_DOUBLE_EQ(drive.commanded().vx, 30) << "the command is shown as it was given";
}

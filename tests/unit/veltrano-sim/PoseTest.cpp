#include "Pose.h"

#include <cmath>
#include <gtest/gtest.h>

using namespace kor::veltrano::sim;

TEST(PoseTest, AnglesAreWrappedIntoTheHalfOpenTurn)
{
    EXPECT_DOUBLE_EQ(wrappedAngle(0), 0);
    EXPECT_DOUBLE_EQ(wrappedAngle(3 * M_PI / 2), -M_PI / 2);
    EXPECT_DOUBLE_EQ(wrappedAngle(-3 * M_PI / 2), M_PI / 2);
    EXPECT_NEAR(wrappedAngle(100 * M_PI + 1), 1, 1e-9);
}

TEST(PoseTest, StraightBackIsPlusPi)
{
    EXPECT_DOUBLE_EQ(wrappedAngle(M_PI), M_PI);
    EXPECT_DOUBLE_EQ(wrappedAngle(-M_PI), M_PI);
    EXPECT_DOUBLE_EQ(wrappedAngle(-3 * M_PI), M_PI);
}

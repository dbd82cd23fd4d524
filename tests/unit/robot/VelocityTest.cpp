#include "robot/Velocity.h"

#include <gtest/gtest.h>

#include <limits>

namespace kor::veltrano::daemons {
namespace {

constexpr VelocityLimits defaults = {2, 2, 3};

TEST(VelocityTest, TakesUpToThreeNumbersInOrder)
{
    const Velocity all = velocityFromJson({0.5, -1, 2.5, 9});
    EXPECT_EQ(all.vx, 0.5F);
    EXPECT_EQ(all.vy, -1.0F);
    EXPECT_EQ(all.omega, 2.5F);
    const Velocity one = velocityFromJson({0.5});
    EXPECT_EQ(one.vx, 0.5F);
    EXPECT_EQ(one.vy, 0.0F);
    EXPECT_EQ(one.omega, 0.0F);
}

TEST(VelocityTest, WhatIsNoNumberIsZero)
{
    const Velocity velocity = velocityFromJson({"1", true, QJsonArray{1}});
    EXPECT_EQ(velocity.vx, 0.0F);
    EXPECT_EQ(velocity.vy, 0.0F);
    EXPECT_EQ(velocity.omega, 0.0F);
}

TEST(VelocityTest, AValueAtItsLimitPasses)
{
    EXPECT_EQ(limitViolation({2, -2, 3}, defaults), QString());
    EXPECT_EQ(limitViolation({-2, 2, -3}, defaults), QString());
}

TEST(VelocityTest, EachComponentHasItsText)
{
    EXPECT_EQ(limitViolation({2.0001F, 0, 0}, defaults),
              "Error: MyOmniDrive::setData - vx out of bounds : vx = 2.0001 | limit = 2");
    EXPECT_EQ(limitViolation({-2.5F, 0, 0}, defaults),
              "Error: MyOmniDrive::setData - vx out of bounds : vx = -2.5 | limit = 2");
    EXPECT_EQ(limitViolation({0, 5, 0}, defaults),
              "Error: MyOmniDrive::setData - vy out of bounds : vx = 5 | limit = 2");
    EXPECT_EQ(limitViolation({0, 0, -3.25F}, defaults),
              "Error: MyOmniDrive::setData - vy out of bounds : omega = -3.25 | limit = 3");
}

TEST(VelocityTest, TheFirstViolationIsTold)
{
    EXPECT_TRUE(limitViolation({9, 9, 9}, defaults).contains("vx = 9"));
    EXPECT_TRUE(limitViolation({0, 8, 9}, defaults).contains("vx = 8"));
}

TEST(VelocityTest, WhatIsNoNumberNeverPasses)
{
    constexpr float nan = std::numeric_limits<float>::quiet_NaN();
    EXPECT_FALSE(limitViolation({nan, 0, 0}, defaults).isEmpty());
    EXPECT_FALSE(limitViolation({1, 0, 0}, {nan, 2, 3}).isEmpty());
    EXPECT_FALSE(
        limitViolation({std::numeric_limits<float>::infinity(), 0, 0}, defaults).isEmpty());
}

TEST(VelocityTest, ALimitOfZeroPermitsStandingOnly)
{
    EXPECT_EQ(limitViolation({0, 0, 0}, {}), QString());
    EXPECT_FALSE(limitViolation({0.001F, 0, 0}, {}).isEmpty());
}

} // namespace
} // namespace kor::veltrano::daemons

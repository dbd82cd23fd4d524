#include "Geometry.h"

#include <cmath>
#include <gtest/gtest.h>

using namespace kor::veltrano::sim;

TEST(GeometryTest, TheNearestPointOfASegmentIsItsFootOrAnEnd)
{
    const Segment segment{{0, 0}, {2, 0}};
    EXPECT_DOUBLE_EQ(nearestOn(segment, {1, 3}).x, 1);
    EXPECT_DOUBLE_EQ(nearestOn(segment, {1, 3}).y, 0);
    EXPECT_DOUBLE_EQ(nearestOn(segment, {-1, 1}).x, 0);
    EXPECT_DOUBLE_EQ(nearestOn(segment, {5, 1}).x, 2);
}

TEST(GeometryTest, ARayMeetsASegmentAtItsDistance)
{
    const Segment wall{{2, -1}, {2, 1}};
    EXPECT_DOUBLE_EQ(rayToSegment({0, 0}, {1, 0}, wall).value_or(-1), 2);
    EXPECT_NEAR(rayToSegment({0, 0}, direction(0.3), wall).value_or(-1), 2 / std::cos(0.3), 1e-12);
}

TEST(GeometryTest, ARayMissesWhatIsBehindBesideOrAlongIt)
{
    EXPECT_FALSE(rayToSegment({0, 0}, {-1, 0}, {{2, -1}, {2, 1}}));
    EXPECT_FALSE(rayToSegment({0, 2}, {1, 0}, {{2, -1}, {2, 1}}));
    EXPECT_FALSE(rayToSegment({0, 0}, {1, 0}, {{1, 0}, {2, 0}}));
}

TEST(GeometryTest, ARayMeetsTheNearSideOfACircle)
{
    const Circle circle{{3, 0}, 1};
    EXPECT_DOUBLE_EQ(rayToCircle({0, 0}, {1, 0}, circle).value_or(-1), 2);
    EXPECT_NEAR(rayToCircle({0, 0.6}, {1, 0}, circle).value_or(-1), 2.2, 1e-12);
    EXPECT_FALSE(rayToCircle({0, 0}, {-1, 0}, circle));
    EXPECT_FALSE(rayToCircle({0, 1.1}, {1, 0}, circle));
}

TEST(GeometryTest, TurningByAQuarterMakesAheadLeft)
{
    const Point left = turned({1, 0}, M_PI / 2);
    EXPECT_NEAR(left.x, 0, 1e-12);
    EXPECT_NEAR(left.y, 1, 1e-12);
}

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

TEST(GeometryTest, ARayGoesThroughACircleFromItsNearToItsFarSide)
{
    const std::optional<Passage> passage = rayThroughCircle({0, 0}, {1, 0}, {{3, 0}, 1});
    ASSERT_TRUE(passage);
    EXPECT_DOUBLE_EQ(passage->enter, 2);
    EXPECT_DOUBLE_EQ(passage->leave, 4);
    EXPECT_DOUBLE_EQ(passage->normal.x, -1);
    EXPECT_FALSE(rayThroughCircle({0, 1.1}, {1, 0}, {{3, 0}, 1}));
}

TEST(GeometryTest, ARayGoesThroughEachArmOfAPolygon)
{
    // Open towards the ray's left, with arms at x = 1 to 2 and 3 to 4.
    const std::vector<Point> fork{{1, -1},   {4, -1},   {4, 1}, {3, 1},
                                  {3, -0.5}, {2, -0.5}, {2, 1}, {1, 1}};
    const std::vector<Passage> passages = rayThroughPolygon({0, 0}, {1, 0}, fork);
    ASSERT_EQ(passages.size(), 2U);
    EXPECT_DOUBLE_EQ(passages[0].enter, 1);
    EXPECT_DOUBLE_EQ(passages[0].leave, 2);
    EXPECT_DOUBLE_EQ(passages[0].normal.x, -1);
    EXPECT_DOUBLE_EQ(passages[1].enter, 3);
    EXPECT_DOUBLE_EQ(passages[1].leave, 4);
    EXPECT_TRUE(rayThroughPolygon({5, 0}, {1, 0}, fork).empty()) << "it is behind";
    EXPECT_TRUE(rayThroughPolygon({0, 2}, {1, 0}, fork).empty()) << "it is beside";
}

TEST(GeometryTest, ARayThroughCornersGoesInAsOftenAsOut)
{
    const std::vector<Point> diamond{{1, 0}, {2, -1}, {3, 0}, {2, 1}};
    const std::vector<Passage> passages = rayThroughPolygon({0, 0}, {1, 0}, diamond);
    ASSERT_EQ(passages.size(), 1U);
    EXPECT_DOUBLE_EQ(passages[0].enter, 1);
    EXPECT_DOUBLE_EQ(passages[0].leave, 3);
    const std::vector<Passage> touching = rayThroughPolygon({0, 1}, {1, 0}, diamond);
    EXPECT_TRUE(touching.empty() || touching[0].leave - touching[0].enter < 1e-9);
}

TEST(GeometryTest, TurningByAQuarterMakesAheadLeft)
{
    const Point left = turned({1, 0}, M_PI / 2);
    EXPECT_NEAR(left.x, 0, 1e-12);
    EXPECT_NEAR(left.y, 1, 1e-12);
}

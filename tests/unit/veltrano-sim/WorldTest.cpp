#include "World.h"

#include <cmath>
#include <gtest/gtest.h>

using namespace kor::veltrano::sim;

TEST(WorldTest, AnEmptyWorldHasNoSurfaceAnywhere)
{
    const World world;
    EXPECT_TRUE(std::isinf(world.nearestSurface({0, 0}).distance));
    EXPECT_FALSE(world.isSolid({0, 0}));
    EXPECT_DOUBLE_EQ(world.rayLength({0, 0}, {1, 0}, 5), 5);
}

TEST(WorldTest, TheNearestSurfaceIsFoundAmongWallsAndObstacles)
{
    World world;
    world.addWall({{0, 2}, {4, 2}});
    world.addCircle({{5, 0}, 1});
    EXPECT_DOUBLE_EQ(world.nearestSurface({1, 0}).distance, 2);
    EXPECT_DOUBLE_EQ(world.nearestSurface({1, 0}).point.y, 2);
    EXPECT_DOUBLE_EQ(world.nearestSurface({3.5, 0}).distance, 0.5);
    EXPECT_DOUBLE_EQ(world.nearestSurface({3.5, 0}).point.x, 4);
    EXPECT_DOUBLE_EQ(world.nearestSurface({4.5, 0}).distance, -0.5);
}

TEST(WorldTest, RaysEndAtTheFirstSurfaceOrAtTheirLimit)
{
    World world;
    world.addPolygon({{2, -1}, {3, -1}, {3, 1}, {2, 1}});
    world.addCircle({{-3, 0}, 1});
    EXPECT_DOUBLE_EQ(world.rayLength({0, 0}, {1, 0}, 10), 2);
    EXPECT_DOUBLE_EQ(world.rayLength({0, 0}, {-1, 0}, 10), 2);
    EXPECT_DOUBLE_EQ(world.rayLength({0, 0}, {1, 0}, 1.5), 1.5);
}

TEST(WorldTest, InsidesOfObstaclesAreSolidAndWallsAreNot)
{
    World world;
    world.addPolygon({{0, 0}, {4, 0}, {4, 4}, {2, 1}, {0, 4}});
    world.addCircle({{10, 0}, 1});
    world.addWall({{20, 0}, {21, 0}});
    EXPECT_TRUE(world.isSolid({1, 0.5}));
    EXPECT_TRUE(world.isSolid({3.5, 2}));
    EXPECT_FALSE(world.isSolid({2, 3})) << "the notch of the polygon is free";
    EXPECT_TRUE(world.isSolid({10.5, 0}));
    EXPECT_FALSE(world.isSolid({20.5, 0.1}));
}

TEST(WorldTest, AHitTellsWhichWallItIsAndThatAnObstacleIsNone)
{
    World world;
    world.addWall({{4, -1}, {4, 1}});
    world.addWall({{3, -1}, {3, 1}});
    world.addCircle({{0, 3}, 1});
    const std::optional<World::Hit> wall = world.firstHit({0, 0}, {1, 0}, 10);
    ASSERT_TRUE(wall);
    EXPECT_EQ(wall->wall, &world.walls()[1]);
    EXPECT_DOUBLE_EQ(wall->way, 3);
    const std::optional<World::Hit> obstacle = world.firstHit({0, 0}, {0, 1}, 10);
    ASSERT_TRUE(obstacle);
    EXPECT_EQ(obstacle->wall, nullptr);
    EXPECT_DOUBLE_EQ(obstacle->way, 2);
    EXPECT_FALSE(world.firstHit({0, 0}, {0, 1}, 1.9));
    EXPECT_FALSE(world.firstHit({0, 0}, {-1, 0}, 10));
}

TEST(WorldTest, WallsAreFoundThroughObstacles)
{
    World world;
    world.addWall({{4, -1}, {4, 1}});
    world.addCircle({{2, 0}, 0.5});
    EXPECT_DOUBLE_EQ(world.firstHit({0, 0}, {1, 0}, 10)->way, 1.5);
    EXPECT_DOUBLE_EQ(world.firstWall({0, 0}, {1, 0}, 10)->way, 4);
}

TEST(WorldTest, AMarkIsPaintedOnTheWallThatItLiesOn)
{
    World world;
    world.addWall({{4, -1}, {4, 1}});
    world.addWall({{0, 2}, {4, 2}});
    EXPECT_TRUE(world.addMark({{{1, 2.009}, {2, 1.991}}, 0.3, 0.9, {}}));
    EXPECT_TRUE(world.walls()[0].marks.empty());
    ASSERT_EQ(world.walls()[1].marks.size(), 1U);
    const Mark& mark = world.walls()[1].marks[0];
    EXPECT_DOUBLE_EQ(mark.line.from.y, 2) << "exactly on it";
    EXPECT_TRUE(mark.covers({1.01, 2}));
    EXPECT_TRUE(mark.covers({1.99, 2}));
    EXPECT_FALSE(mark.covers({0.99, 2}));
    EXPECT_FALSE(mark.covers({2.01, 2}));
    EXPECT_FALSE(world.addMark({{{1, 2.02}, {2, 2}}, 0.3, 0.9, {}})) << "too far from the wall";
    EXPECT_FALSE(world.addMark({{{3, 2}, {4.1, 2}}, 0.3, 0.9, {}})) << "beyond its end";
    EXPECT_FALSE(world.addMark({{{4, 0}, {3, 2}}, 0.3, 0.9, {}})) << "from one wall to another";
}

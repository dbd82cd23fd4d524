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

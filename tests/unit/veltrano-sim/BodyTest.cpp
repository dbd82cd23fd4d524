#include "Body.h"

#include "support/worlds.h"

#include <cmath>
#include <gtest/gtest.h>
#include <random>

using namespace kor::veltrano::sim;

namespace {

constexpr double stepS = 0.01;
constexpr double hair = 1e-6;

Pose driven(const Body& body, Pose pose, const Velocity& velocity, int steps)
{
    for (int step = 0; step < steps; ++step) {
        pose = body.moved(pose, velocity, stepS);
    }
    return pose;
}

} // namespace

TEST(BodyTest, MovesInTheWorldAsItHeads)
{
    const World world = emptyWorld();
    const Pose pose = Body(world).moved({1, 2, M_PI / 2}, {0.5, 0.25, 0}, 2);
    EXPECT_NEAR(pose.x, 1 - 0.5, 1e-9);
    EXPECT_NEAR(pose.y, 2 + 1, 1e-9);
    EXPECT_DOUBLE_EQ(pose.phi, M_PI / 2);
}

TEST(BodyTest, DrivesACircleBackToItsBeginning)
{
    const World world = emptyWorld();
    const int steps = 1000;
    const double omega = 2 * M_PI / (steps * stepS);
    const Body body(world);
    const Pose half = driven(body, {}, {omega, 0, omega}, steps / 2);
    EXPECT_NEAR(half.x, 0, 1e-3);
    EXPECT_NEAR(half.y, 2, 1e-3) << "a radius of 1 m to the left";
    const Pose whole = driven(body, half, {omega, 0, omega}, steps / 2);
    EXPECT_NEAR(whole.x, 0, 1e-9);
    EXPECT_NEAR(whole.y, 0, 1e-9);
}

TEST(BodyTest, StopsAtAWallWithItsEdge)
{
    const World world = squareRoom(2);
    const Pose pose = driven(Body(world), {}, {1, 0, 0}, 400);
    EXPECT_NEAR(pose.x, 2 - Body::radius, hair);
    EXPECT_NEAR(pose.y, 0, hair);
}

TEST(BodyTest, SlidesAlongAWallThatItMeetsAtAnAngle)
{
    const World world = squareRoom(2);
    const Pose pose = driven(Body(world), {1, -1, 0}, {1, 0.5, 0}, 200);
    EXPECT_NEAR(pose.x, 2 - Body::radius, hair);
    EXPECT_NEAR(pose.y, 0, 1e-3);
}

TEST(BodyTest, SlidesAroundARoundObstacle)
{
    World world;
    world.addCircle({{2, 0}, 0.5});
    const Pose pose = driven(Body(world), {0, 0.1, 0}, {1, 0, 0}, 600);
    EXPECT_GT(pose.x, 3);
}

TEST(BodyTest, RestsInACorner)
{
    const World world = squareRoom(1);
    const Pose pose = driven(Body(world), {}, {1, 1, 0}, 300);
    EXPECT_NEAR(pose.x, 1 - Body::radius, hair);
    EXPECT_NEAR(pose.y, 1 - Body::radius, hair);
}

TEST(BodyTest, StopsInAWedgeThatIsTooNarrow)
{
    World world;
    world.addWall({{0, 0}, {3, 0.3}});
    world.addWall({{0, 0}, {3, -0.3}});
    const Body body(world);
    const Pose pose = driven(body, {4, 0, 0}, {-3, 0, 0}, 300);
    EXPECT_GT(pose.x, 1);
    EXPECT_TRUE(body.touches({pose.x, pose.y}));
    EXPECT_TRUE(body.fits({pose.x, pose.y}));
}

TEST(BodyTest, NeverLeavesARoomAtAnySpeedAngleAndLengthOfAStep)
{
    World world = squareRoom(1.5);
    world.addCircle({{0.8, 0.8}, 0.2});
    world.addPolygon({{-1, -1}, {-0.6, -1}, {-0.8, -0.5}});
    const Body body(world);
    std::mt19937 random(7);
    std::uniform_real_distribution<double> angle(-M_PI, M_PI);
    std::uniform_real_distribution<double> speed(0, 100);
    std::uniform_real_distribution<double> omega(-10, 10);
    for (int journey = 0; journey < 200; ++journey) {
        const Point ahead = direction(angle(random)) * speed(random);
        const Velocity velocity{ahead.x, ahead.y, omega(random)};
        const double dtS = journey % 4 == 0 ? 0.2 : stepS;
        Pose pose{0, 0, angle(random)};
        for (int step = 0; step < 20; ++step) {
            pose = body.moved(pose, velocity, dtS);
            ASSERT_TRUE(body.fits({pose.x, pose.y})) << "journey " << journey;
            ASSERT_LT(std::max(std::abs(pose.x), std::abs(pose.y)), 1.5) << "journey " << journey;
            ASSERT_LE(std::abs(pose.phi), M_PI);
        }
    }
}

TEST(BodyTest, NeverJumpsAmongObstaclesThatStandClose)
{
    // The longest way that is not cut into shorter ones.
    const double longestWayM = Body::radius / 4;
    std::mt19937 random(11);
    std::uniform_real_distribution<double> place(-1.5, 1.5);
    std::uniform_real_distribution<double> angle(-M_PI, M_PI);
    for (int clutter = 0; clutter < 300; ++clutter) {
        World world = squareRoom(2);
        for (int thing = 0; thing < 6; ++thing) {
            const Point from{place(random), place(random)};
            world.addWall({from, from + direction(angle(random))});
        }
        const Body body(world);
        Pose pose{place(random), place(random), 0};
        for (int step = 0; step < 200 && body.fits({pose.x, pose.y}); ++step) {
            const Point ahead = direction(step % 50 == 0 ? angle(random) : pose.phi) * longestWayM;
            const Pose next = body.moved(pose, {ahead.x, ahead.y, 0.02}, 1);
            ASSERT_TRUE(body.fits({next.x, next.y})) << "clutter " << clutter;
            ASSERT_LE(std::hypot(next.x - pose.x, next.y - pose.y), longestWayM * 1.06)
                << "clutter " << clutter;
            pose = next;
        }
    }
}

TEST(BodyTest, TouchesWithinAMillimetreOnly)
{
    const World world = squareRoom(2);
    const Body body(world);
    EXPECT_TRUE(body.touches({2 - Body::radius, 0}));
    EXPECT_FALSE(body.touches({2 - Body::radius - 0.002, 0}));
}

TEST(BodyTest, FitsOnlyWhereNothingIsInsideOfTheHull)
{
    World world = squareRoom(2);
    world.addPolygon({{-1, -1}, {1, -1}, {1, 1}, {-1, 1}});
    const Body body(world);
    EXPECT_FALSE(body.fits({0, 0})) << "the middle of a polygon is far from its edges";
    EXPECT_TRUE(body.fits({1.5, 0}));
    EXPECT_FALSE(body.fits({1.2, 0}));
}

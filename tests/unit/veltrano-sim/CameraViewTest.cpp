// What the camera shows, held against the geometry of a pinhole: a point at the depth d along the
// view, l to the left and z above the floor is in column 320 - 400 l / d, row 200 + 400 (0.5 - z) /
// d.
#include "CameraView.h"

#include "support/Jpeg.h"
#include "support/worlds.h"

#include <cmath>
#include <gtest/gtest.h>

using namespace kor::veltrano::sim;

namespace {

constexpr Color red{210, 47, 39};
constexpr Color blue{28, 111, 214};

// A red mark a metre wide on the wall 2 m ahead, from 0.3 to 0.9 m above the floor.
World markAhead()
{
    World world = squareRoom(2);
    EXPECT_TRUE(world.addMark({{{2, -0.5}, {2, 0.5}}, 0.3, 0.9, red}));
    return world;
}

bool isReddish(Color color)
{
    return color.red > 2 * color.green && color.red > 2 * color.blue;
}

bool isBluish(Color color)
{
    return color.blue > 1.5 * color.green && color.blue > 2 * color.red;
}

// The rectangle of all pixels of a kind, as columns and rows.
struct Extent {
    int left = 10000;
    int right = -1;
    int top = 10000;
    int bottom = -1;
};

template<typename Kind>
Extent extentOf(const Picture& picture, Kind isOfKind)
{
    Extent extent;
    for (int row = 0; row < picture.height; ++row) {
        for (int column = 0; column < picture.width; ++column) {
            if (isOfKind(picture.row(row)[column])) {
                extent = {std::min(extent.left, column), std::max(extent.right, column),
                          std::min(extent.top, row), std::max(extent.bottom, row)};
            }
        }
    }
    return extent;
}

} // namespace

TEST(CameraViewTest, AMarkAppearsWhereItIs)
{
    const World world = markAhead();
    CameraView view(world);
    const Extent mark = extentOf(view.draw({0, 0, 0}), isReddish);
    EXPECT_NEAR(mark.left, 320 - 400 * 0.5 / 2, 1);
    EXPECT_NEAR(mark.right, 320 + 400 * 0.5 / 2, 1);
    EXPECT_NEAR(mark.top, 200 + 400 * (0.5 - 0.9) / 2, 1);
    EXPECT_NEAR(mark.bottom, 200 + 400 * (0.5 - 0.3) / 2, 1);
}

TEST(CameraViewTest, AMarkGrowsWhenTheRobotComesNearerAndMovesWhenItTurns)
{
    const World world = markAhead();
    CameraView view(world);
    const Extent near = extentOf(view.draw({1, 0, 0}), isReddish);
    EXPECT_NEAR(near.right - near.left, 400, 2);
    const Extent turnedTo = extentOf(view.draw({0, 0, -0.3}), isReddish);
    const Point leftEnd = turned({2, 0.5}, 0.3);
    const Point rightEnd = turned({2, -0.5}, 0.3);
    EXPECT_NEAR(turnedTo.left, 320 - 400 * leftEnd.y / leftEnd.x, 1);
    EXPECT_NEAR(turnedTo.right, 320 - 400 * rightEnd.y / rightEnd.x, 1);
    const Extent away = extentOf(view.draw({0, 0, M_PI}), isReddish);
    EXPECT_EQ(away.right, -1) << "behind the robot";
}

TEST(CameraViewTest, MarksAreSeenFromBothSidesOfTheirWallAndNotThroughOthers)
{
    World world;
    world.addWall({{2, -1}, {2, 1}});
    ASSERT_TRUE(world.addMark({{{2, -0.5}, {2, 0.5}}, 0.3, 0.9, red}));
    CameraView open(world);
    EXPECT_GE(extentOf(open.draw({0, 0, 0}), isReddish).right, 0);
    EXPECT_GE(extentOf(open.draw({4, 0, M_PI}), isReddish).right, 0);
    World closed = world;
    closed.addWall({{1, -2}, {1, 2}});
    CameraView hidden(closed);
    EXPECT_EQ(extentOf(hidden.draw({0, 0, 0}), isReddish).right, -1);
}

TEST(CameraViewTest, ObstaclesHideWhatIsBehindThemUpToTheirHeight)
{
    World world = squareRoom(2);
    ASSERT_TRUE(world.addMark({{{2, -0.5}, {2, 0.5}}, 0.0, 0.9, red}));
    CameraView bare(world);
    EXPECT_NEAR(extentOf(bare.draw({0, 0, 0}), isReddish).bottom, 200 + 400 * 0.5 / 2, 1);
    world.addPolygon({{1, -1}, {1.5, -1}, {1.5, 1}, {1, 1}});
    CameraView view(world);
    const Extent mark = extentOf(view.draw({0, 0, 0}), isReddish);
    EXPECT_NEAR(mark.top, 200 + 400 * (0.5 - 0.9) / 2, 1);
    const double topsFarEdge = 200 + 400 * (0.5 - World::obstacleHeightM) / 1.5;
    EXPECT_NEAR(mark.bottom, topsFarEdge, 1);
}

TEST(CameraViewTest, OfTwoObstaclesTheNearerIsInFront)
{
    World world;
    // The first obstacle is of another colour than the second one.
    world.addCircle({{3, 0}, 0.5});
    CameraView one(world);
    const Color first = one.draw({0, 0, 0}).row(230)[320];
    world.addCircle({{1.5, 0}, 0.5});
    CameraView both(world);
    const Color nearer = both.draw({0, 0, 0}).row(230)[320];
    EXPECT_TRUE(isBluish(nearer) || nearer.blue > nearer.red);
    EXPECT_GT(first.red, first.blue);
    const Color seenFromBehind = both.draw({5, 0, M_PI}).row(230)[320];
    EXPECT_GT(seenFromBehind.red, seenFromBehind.blue) << "now the first one is nearer";
}

TEST(CameraViewTest, TheFloorIsChequeredInTheWorldsFrame)
{
    const World world = emptyWorld();
    CameraView view(world);
    // Half a metre on, a tile of the other colour is at the same place of the picture.
    const Color here = view.draw({0.1, 0.1, 0}).row(440)[320];
    const Color further = view.draw({0.6, 0.1, 0}).row(440)[320];
    const Color twice = view.draw({1.1, 0.1, 0}).row(440)[320];
    EXPECT_GT(std::abs(here.red - further.red), 20);
    EXPECT_TRUE(isAbout(here, twice, 0));
    const Color diagonal = view.draw({0.6, 0.6, 0}).row(440)[320];
    EXPECT_TRUE(isAbout(here, diagonal, 0));
}

TEST(CameraViewTest, TheTwoWallsOfACornerDiffer)
{
    const World world = squareRoom(2);
    CameraView view(world);
    for (const double corner : {0.25, 0.75, -0.25, -0.75}) {
        const Picture& picture = view.draw({0, 0, corner * M_PI});
        const Color left = picture.row(180)[250];
        const Color right = picture.row(180)[390];
        EXPECT_GT(std::abs(left.red - right.red), 8) << corner;
    }
}

TEST(CameraViewTest, EveryPoseGivesAPictureAlsoAtTheWorldsEnd)
{
    World world = squareRoom(2);
    world.addCircle({{1, 1}, 0.3});
    CameraView view(world);
    for (const Pose& pose : {Pose{World::farthestM, World::farthestM, 1},
                             Pose{-World::farthestM, -World::farthestM, -2}, Pose{1.775, 0, 0}}) {
        EXPECT_EQ(view.draw(pose).pixels.size(), 640U * 480U);
    }
}

// The built-in maze can be driven through from its start to the green mark at its goal.
#include "Body.h"
#include "WorldFile.h"

#include <cmath>
#include <deque>
#include <gtest/gtest.h>
#include <set>
#include <utility>

using namespace kor::veltrano::sim;

namespace {

constexpr double gridM = 0.1;

World maze()
{
    const WorldOutcome outcome = readWorld(worldPath(QStringLiteral("maze")));
    EXPECT_TRUE(outcome.world) << outcome.error.toStdString();
    return outcome.world.value_or(World{});
}

// The middles of all marks of a colour.
std::vector<Point> marksOf(const World& world, const char* text)
{
    const std::optional<Color> color = toColor(QString::fromLatin1(text));
    std::vector<Point> middles;
    for (const World::Wall& wall : world.walls()) {
        for (const Mark& mark : wall.marks) {
            if (mark.color.red == color->red && mark.color.green == color->green
                && mark.color.blue == color->blue) {
                middles.push_back((mark.line.from + mark.line.to) * 0.5);
            }
        }
    }
    return middles;
}

// How many steps of the grid the hull, with so much more air around it, is away from the start when
// it first is within 0.7 m of a place; -1 where it cannot get there.
int stepsTo(const World& world, Point goal, double airM)
{
    using Cell = std::pair<int, int>;
    const Body body(world);
    const Point start{world.start().x, world.start().y};
    std::deque<std::pair<Cell, int>> border{{{0, 0}, 0}};
    std::set<Cell> seen{{0, 0}};
    while (!border.empty()) {
        const auto [cell, steps] = border.front();
        border.pop_front();
        const Point here = start + Point{cell.first * gridM, cell.second * gridM};
        if (length(here - goal) < 0.7) {
            return steps;
        }
        for (const Cell& way : {Cell{1, 0}, Cell{-1, 0}, Cell{0, 1}, Cell{0, -1}}) {
            const Cell next{cell.first + way.first, cell.second + way.second};
            const Point there = start + Point{next.first * gridM, next.second * gridM};
            const bool isInside = std::abs(there.x) < 20 && std::abs(there.y) < 20;
            const bool isFree =
                body.fits(there) && world.nearestSurface(there).distance >= Body::radius + airM;
            if (isInside && isFree && seen.insert(next).second) {
                border.push_back({next, steps + 1});
            }
        }
    }
    return -1;
}

} // namespace

TEST(MazeTest, TheGoalIsReachedWithAHandsBreadthOfAir)
{
    const World world = maze();
    const std::vector<Point> goal = marksOf(world, "#2f9e44");
    ASSERT_EQ(goal.size(), 1U);
    EXPECT_GT(stepsTo(world, goal[0], 0.1) * gridM, 20) << "m; it is far";
    EXPECT_EQ(stepsTo(world, goal[0], 0.5), -1) << "the search heeds walls";
}

TEST(MazeTest, IsClosedAllAround)
{
    EXPECT_EQ(stepsTo(maze(), {15, 15}, 0), -1);
}

TEST(MazeTest, EveryMarkCanBeDrivenTo)
{
    const World world = maze();
    for (const char* const color : {"#f2b705", "#1c6fd6", "#d22f27"}) {
        const std::vector<Point> places = marksOf(world, color);
        EXPECT_FALSE(places.empty()) << color;
        for (const Point& place : places) {
            EXPECT_GE(stepsTo(world, place, 0.1), 0)
                << color << " at " << place.x << ", " << place.y;
        }
    }
}

TEST(MazeTest, RedMarksAreNotOnTheWayToTheGoal)
{
    World world = maze();
    const Point goal = marksOf(world, "#2f9e44").at(0);
    const int freely = stepsTo(world, goal, 0.1);
    // Whatever stands before the red marks is no hindrance.
    for (const Point& place : marksOf(world, "#d22f27")) {
        world.addCircle({place, 0.6});
    }
    EXPECT_EQ(stepsTo(world, goal, 0.1), freely);
}

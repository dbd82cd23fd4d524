#include "WorldFile.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace kor::veltrano::sim;

namespace {

// A dollar sign in a text stands for the members of a good name and start, a percent sign for these
// and a wall, and the ends of a mark on it.
QByteArray filledIn(const char* text)
{
    return QByteArray(text)
        .replace('%', R"($,"walls":[{"from":[1,-1],"to":[1,1]}],"marks":[{"from":[1,0],"to":[1,1])")
        .replace('$', R"("name":"w","start":{"x":0,"y":0,"phi":0})");
}

struct BadWorld {
    const char* situation;
    const char* text;
    const char* error;
};

void PrintTo(const BadWorld& world, std::ostream* out)
{
    *out << world.situation;
}

class BadWorldTest : public testing::TestWithParam<BadWorld>
{
};

} // namespace

TEST_P(BadWorldTest, IsRefusedWithTheNameOfTheMember)
{
    const WorldOutcome outcome = parseWorld(filledIn(GetParam().text));
    EXPECT_FALSE(outcome.world);
    EXPECT_EQ(outcome.error.toStdString(), GetParam().error);
}

INSTANTIATE_TEST_SUITE_P(
    WorldFile, BadWorldTest,
    testing::Values(
        BadWorld{"Empty", "", "illegal value at byte 0"},
        BadWorld{"Array", "[]", "the world must be an object"},
        BadWorld{"NoColon", R"({"name" 1})", "missing name separator at byte 9"},
        BadWorld{"NoName", R"({"start":{"x":0,"y":0,"phi":0},"walls":[]})", "name must be a text"},
        BadWorld{"NumberAsName", R"({"name":1,"start":{"x":0,"y":0,"phi":0},"walls":[]})",
                 "name must be a text"},
        BadWorld{"NoStart", R"({"name":"w","walls":[]})", "start must be an object"},
        BadWorld{"StartWithoutPhi", R"({"name":"w","start":{"x":0,"y":0},"walls":[]})",
                 "start.phi must be a number"},
        BadWorld{"StartTooFar", R"({"name":"w","start":{"x":1e5,"y":0,"phi":0},"walls":[]})",
                 "start.x must be within -10000 and 10000"},
        BadWorld{"UnknownMember", R"({$,"walls":[],"wals":[]})",
                 "wals is unknown; known are name, start, walls, obstacles, marks"},
        BadWorld{"NoWalls", "{$}", "walls must be an array"},
        BadWorld{"WallAsArray", R"({$,"walls":[[0,0,1,1]]})", "walls[0] must be an object"},
        BadWorld{"WallWithoutTo", R"({$,"walls":[{"from":[1,1]}]})",
                 "walls[0].to must be an array of two numbers, x and y in m"},
        BadWorld{"WallWithThreeNumbers", R"({$,"walls":[{"from":[1,1,1],"to":[2,2]}]})",
                 "walls[0].from must be an array of two numbers, x and y in m"},
        BadWorld{"WallWithText",
                 R"({$,"walls":[{"from":[1,1],"to":[1,2]},{"from":[1,1],"to":[2,"2"]}]})",
                 "walls[1].to[1] must be a number"},
        BadWorld{"WallOfNoLength", R"({$,"walls":[{"from":[1,1],"to":[1,1]}]})",
                 "walls[0] must be longer than nothing"},
        BadWorld{"WallWithMore", R"({$,"walls":[{"from":[1,1],"to":[1,2],"color":"red"}]})",
                 "walls[0].color is unknown; known are from, to"},
        BadWorld{"ObstaclesAsObject", R"({$,"walls":[],"obstacles":{}})",
                 "obstacles must be an array"},
        BadWorld{"EmptyObstacle", R"({$,"walls":[],"obstacles":[{}]})",
                 "obstacles[0] must have either circle or polygon"},
        BadWorld{"UnknownObstacle", R"({$,"walls":[],"obstacles":[{"cube":1}]})",
                 "obstacles[0].cube is unknown; known are circle, polygon"},
        BadWorld{"CircleWithoutRadius",
                 R"({$,"walls":[],"obstacles":[{"circle":{"center":[1,1]}}]})",
                 "obstacles[0].circle.radius must be a number"},
        BadWorld{"CircleOfNoSize",
                 R"({$,"walls":[],"obstacles":[{"circle":{"center":[1,1],"radius":0}}]})",
                 "obstacles[0].circle.radius must be above 0"},
        BadWorld{"CircleWithoutCenter", R"({$,"walls":[],"obstacles":[{"circle":{"radius":1}}]})",
                 "obstacles[0].circle.center must be an array of two numbers, x and y in m"},
        BadWorld{"PolygonOfTwoCorners", R"({$,"walls":[],"obstacles":[{"polygon":[[1,1],[2,2]]}]})",
                 "obstacles[0].polygon must have at least 3 corners"},
        BadWorld{"PolygonWithNull",
                 R"({$,"walls":[],"obstacles":[{"polygon":[[1,1],[2,2],null]}]})",
                 "obstacles[0].polygon[2] must be an array of two numbers, x and y in m"},
        BadWorld{"MarksAsObject", R"({$,"walls":[],"marks":{}})", "marks must be an array"},
        BadWorld{"MarkAsText", R"({$,"walls":[],"marks":["red"]})", "marks[0] must be an object"},
        BadWorld{"MarkWithoutEnds", R"({$,"walls":[],"marks":[{"color":"#ff0000"}]})",
                 "marks[0].from must be an array of two numbers, x and y in m"},
        BadWorld{"MarkWithoutColor", "{%}]}",
                 "marks[0].color must be a colour of the form #rrggbb"},
        BadWorld{"MarkWithNameAsColor", R"({%,"color":"red"}]})",
                 "marks[0].color must be a colour of the form #rrggbb"},
        BadWorld{"MarkWithNumberAsColor", R"({%,"color":255}]})",
                 "marks[0].color must be a colour of the form #rrggbb"},
        BadWorld{"MarkWithOneHeight", R"({%,"color":"#ff0000","height":0.5}]})",
                 "marks[0].height must be an array of two rising numbers from 0 to 1.2, in m"},
        BadWorld{"MarkUpsideDown", R"({%,"color":"#ff0000","height":[0.5,0.4]}]})",
                 "marks[0].height must be an array of two rising numbers from 0 to 1.2, in m"},
        BadWorld{"MarkBelowTheFloor", R"({%,"color":"#ff0000","height":[-0.1,0.4]}]})",
                 "marks[0].height must be an array of two rising numbers from 0 to 1.2, in m"},
        BadWorld{"MarkAboveTheWall", R"({%,"color":"#ff0000","height":[0.5,1.3]}]})",
                 "marks[0].height must be an array of two rising numbers from 0 to 1.2, in m"},
        BadWorld{"MarkWithMore", R"({%,"color":"#ff0000","width":1}]})",
                 "marks[0].width is unknown; known are from, to, color, height"},
        BadWorld{"SecondMarkBesideTheWalls",
                 R"({%,"color":"#ff0000"},{"from":[2,0],"to":[2,1],"color":"#ff0000"}]})",
                 "marks[1] must lie on one of the walls"},
        BadWorld{"MarkOfNoLength",
                 R"({%,"color":"#ff0000"},{"from":[1,0],"to":[1,0],"color":"#ff0000"}]})",
                 "marks[1] must be longer than nothing"},
        BadWorld{"StartAtAWall", R"({$,"walls":[{"from":[0.1,-1],"to":[0.1,1]}]})",
                 "start is inside of a wall or an obstacle; the robot needs 0.225 m around it"},
        BadWorld{"StartInAnObstacle",
                 R"({$,"walls":[],"obstacles":[{"polygon":[[-9,-9],[9,-9],[0,9]]}]})",
                 "start is inside of a wall or an obstacle; the robot needs 0.225 m around it"}),
    [](const auto& row) { return row.param.situation; });

TEST(WorldFileTest, AWholeWorldIsRead)
{
    const WorldOutcome outcome = parseWorld(R"({
        "name": "hall", "start": {"x": 1, "y": 2, "phi": 4},
        "walls": [{"from": [0, 0], "to": [5, 0]}],
        "obstacles": [{"circle": {"center": [4, 4], "radius": 0.5}},
                      {"polygon": [[3, 1], [4, 1], [4, 2]]}]})");
    ASSERT_TRUE(outcome.world) << outcome.error.toStdString();
    EXPECT_EQ(outcome.world->name().toStdString(), "hall");
    EXPECT_DOUBLE_EQ(outcome.world->start().y, 2);
    EXPECT_LT(outcome.world->start().phi, 0) << "the angle is wrapped";
    EXPECT_EQ(outcome.world->walls().size(), 1U);
    EXPECT_EQ(outcome.world->roundObstacles().size(), 1U);
    EXPECT_TRUE(outcome.world->isSolid({3.9, 1.5}));
}

TEST(WorldFileTest, ObstaclesAndMarksMayBeLeftOut)
{
    EXPECT_TRUE(parseWorld(filledIn(R"({$,"walls":[]})")).world);
}

TEST(WorldFileTest, MarksAreReadAndHaveAHeightAlsoWithoutSayingSo)
{
    const WorldOutcome outcome = parseWorld(filledIn(
        R"({%,"color":"#ff8001"},{"from":[1,0],"to":[1,1],"color":"#000000","height":[0,1.2]}]})"));
    ASSERT_TRUE(outcome.world) << outcome.error.toStdString();
    const std::vector<Mark>& marks = outcome.world->walls().at(0).marks;
    ASSERT_EQ(marks.size(), 2U);
    EXPECT_DOUBLE_EQ(marks[0].line.to.y, 1);
    EXPECT_DOUBLE_EQ(marks[0].bottomM, 0.35);
    EXPECT_DOUBLE_EQ(marks[0].topM, 0.85);
    EXPECT_EQ(marks[0].color.red, 255);
    EXPECT_EQ(marks[0].color.green, 128);
    EXPECT_EQ(marks[0].color.blue, 1);
    EXPECT_DOUBLE_EQ(marks[1].bottomM, 0);
    EXPECT_DOUBLE_EQ(marks[1].topM, 1.2);
}

TEST(WorldFileTest, TheBuiltInWorldsAreGoodAndFoundByTheirNames)
{
    EXPECT_EQ(builtInWorlds().join(QLatin1Char(' ')).toStdString(), "room maze");
    for (const QString& name : builtInWorlds()) {
        const WorldOutcome outcome = readWorld(worldPath(name));
        ASSERT_TRUE(outcome.world) << outcome.error.toStdString();
        EXPECT_EQ(outcome.world->name(), name);
    }
}

TEST(WorldFileTest, WhatIsNoNameOfABuiltInWorldIsAPath)
{
    for (const char* const path : {"./room", "room.json", "/room", "Room", "yard", ""}) {
        EXPECT_EQ(worldPath(QString::fromLatin1(path)).toStdString(), path);
    }
}

TEST(WorldFileTest, AFileThatIsNotThereIsNamed)
{
    const WorldOutcome outcome = readWorld(QStringLiteral("/nowhere/world.json"));
    EXPECT_FALSE(outcome.world);
    EXPECT_EQ(outcome.error.toStdString(), "/nowhere/world.json: No such file or directory");
}

TEST(WorldFileTest, ABadMemberIsNamedWithItsFile)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("world.json"));
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("{}");
    file.close();
    EXPECT_EQ(readWorld(path).error, path + QStringLiteral(": name must be a text"));
}

TEST(WorldFileTest, AHugeFileIsRefusedUnread)
{
    EXPECT_EQ(readWorld(QStringLiteral("/dev/zero")).error.toStdString(),
              "/dev/zero: larger than 1 MiB");
}

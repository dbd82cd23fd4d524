#include "Robot.h"

#include "JsonShape.h"
#include "support/worlds.h"

#include <QJsonDocument>

#include <cmath>
#include <gtest/gtest.h>

using namespace kor::veltrano::sim;

namespace {

const QString setVelocity = QStringLiteral("omniDrive.setVelocity");

QJsonObject object(const char* json)
{
    return QJsonDocument::fromJson(json).object();
}

void run(Robot& robot, double seconds)
{
    for (int step = 0; step < seconds * 100; ++step) {
        robot.step(0.01);
    }
}

} // namespace

TEST(RobotTest, StartsWhereTheWorldSays)
{
    World world;
    world.setStart({1, 2, 3});
    const Robot robot(world);
    EXPECT_DOUBLE_EQ(robot.pose().x, 1);
    EXPECT_DOUBLE_EQ(robot.pose().y, 2);
    EXPECT_DOUBLE_EQ(robot.pose().phi, 3);
}

TEST(RobotTest, DrivesAsCommandedUntilTheNextCommand)
{
    const World world = emptyWorld();
    Robot robot(world);
    EXPECT_TRUE(robot.command(setVelocity, object(R"({"vx":0.5,"vy":0,"omega":0})")));
    run(robot, 10);
    EXPECT_NEAR(robot.pose().x, 5, 0.1);
    EXPECT_TRUE(robot.command(setVelocity, object(R"({"vx":0,"vy":0,"omega":0})")));
    run(robot, 1);
    const double rest = robot.pose().x;
    run(robot, 1);
    EXPECT_DOUBLE_EQ(robot.pose().x, rest);
}

TEST(RobotTest, IgnoresCommandsOfAWrongShape)
{
    const World world = emptyWorld();
    Robot robot(world);
    for (const char* const wrong :
         {R"({})", R"({"vx":1,"vy":0})", R"({"vx":"1","vy":0,"omega":0})",
          R"({"vx":null,"vy":0,"omega":0})", R"({"vx":[1],"vy":0,"omega":0})",
          R"({"vx":true,"vy":0,"omega":0})", R"({"vx":1e999,"vy":0,"omega":0})"}) {
        EXPECT_FALSE(robot.command(setVelocity, object(wrong))) << wrong;
    }
    EXPECT_FALSE(
        robot.command(QStringLiteral("omniDrive.fly"), object(R"({"vx":1,"vy":0,"omega":0})")));
    EXPECT_DOUBLE_EQ(robot.commandedVelocity().vx, 0);
}

TEST(RobotTest, ShowsThatAWallHasStoppedIt)
{
    const World world = squareRoom(1);
    Robot robot(world);
    robot.command(setVelocity, object(R"({"vx":2,"vy":0,"omega":0})"));
    EXPECT_FALSE(robot.isTouching());
    run(robot, 3);
    EXPECT_TRUE(robot.isTouching());
    EXPECT_NEAR(robot.pose().x, 1 - Body::radius, 1e-6);
    EXPECT_NEAR(robot.velocity().vx, 0, 1e-6);
    EXPECT_DOUBLE_EQ(robot.commandedVelocity().vx, 2);
}

TEST(RobotTest, KeepsWhatAWallLeavesOfItsVelocity)
{
    const World world = squareRoom(5);
    Robot robot(world);
    robot.command(setVelocity, object(R"({"vx":1,"vy":0.5,"omega":0})"));
    run(robot, 6);
    EXPECT_TRUE(robot.isTouching());
    EXPECT_NEAR(robot.velocity().vx, 0, 1e-6);
    EXPECT_GT(robot.velocity().vy, 0.3);
}

TEST(RobotTest, LetsGoOfAWallWhenItBacksOff)
{
    const World world = squareRoom(1);
    Robot robot(world);
    robot.command(setVelocity, object(R"({"vx":1,"vy":0,"omega":0})"));
    run(robot, 2);
    robot.command(setVelocity, object(R"({"vx":0,"vy":0,"omega":0})"));
    run(robot, 1);
    EXPECT_TRUE(robot.isTouching()) << "a robot that stands at the wall still touches it";
    robot.command(setVelocity, object(R"({"vx":-0.5,"vy":0,"omega":0})"));
    run(robot, 0.2);
    EXPECT_FALSE(robot.isTouching());
}

TEST(RobotTest, CanBePutSomewhereButNotIntoAWall)
{
    const World world = squareRoom(1);
    Robot robot(world);
    const QString pose = QStringLiteral("pose");
    const Change into = robot.prepare(pose, object(R"({"x":0.9,"y":0,"phi":0})"));
    EXPECT_FALSE(into.isAccepted());
    EXPECT_NE(into.reason().toStdString().find("inside of a wall"), std::string::npos);
    EXPECT_FALSE(robot.prepare(pose, object(R"({"x":0,"y":0})")).isAccepted());
    EXPECT_FALSE(robot.prepare(pose, object(R"({"x":1e300,"y":0,"phi":0})")).isAccepted());
    robot.prepare(pose, object(R"({"x":0.5,"y":0,"phi":7})")).apply();
    EXPECT_DOUBLE_EQ(robot.pose().x, 0.5);
    EXPECT_NEAR(robot.pose().phi, 7 - 2 * M_PI, 1e-12);
}

TEST(RobotTest, CanBeGivenAVelocityWhichThenFollowsTheCommand)
{
    const World world = emptyWorld();
    Robot robot(world);
    robot.prepare(QStringLiteral("velocity"), object(R"({"vx":1,"vy":0,"omega":0})")).apply();
    EXPECT_DOUBLE_EQ(robot.velocity().vx, 1);
    run(robot, 1);
    EXPECT_DOUBLE_EQ(robot.velocity().vx, 0);
    robot.prepare(QStringLiteral("commandedVelocity"), object(R"({"vx":0,"vy":1,"omega":0})"))
        .apply();
    run(robot, 1);
    EXPECT_DOUBLE_EQ(robot.velocity().vy, 1);
    EXPECT_FALSE(robot.prepare(QStringLiteral("velocity"), 5).isAccepted());
    EXPECT_FALSE(
        robot.prepare(QStringLiteral("velocity"), object(R"({"vx":2.5,"vy":2.5,"omega":0})"))
            .isAccepted())
        << "the drive does not reach this";
}

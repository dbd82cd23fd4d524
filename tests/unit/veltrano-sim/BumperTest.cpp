#include "Bumper.h"

#include "Robot.h"
#include "support/worlds.h"

#include <gtest/gtest.h>

using namespace kor::veltrano::sim;

namespace {

class BumperTest : public testing::Test
{
protected:
    void drive(double vx, double seconds)
    {
        robot.command(
            QStringLiteral("omniDrive.setVelocity"),
            {{QStringLiteral("vx"), vx}, {QStringLiteral("vy"), 0}, {QStringLiteral("omega"), 0}});
        for (int step = 0; step < seconds * 100; ++step) {
            robot.step(0.01);
            bumper.step(0.01);
            news += bumper.hasNews() ? 1 : 0;
            bumper.dropNews();
        }
    }

    const QString key = QStringLiteral("bumper");
    const World world = squareRoom(1);
    Robot robot{world};
    Bumper bumper{robot};
    int news = 0;
};

} // namespace

TEST_F(BumperTest, IsRaisedOnceWhileTheRobotTouchesAndReleasedWhenItBacksOff)
{
    drive(1, 0.3);
    EXPECT_FALSE(bumper.value());
    EXPECT_EQ(news, 0);
    drive(1, 2);
    EXPECT_TRUE(bumper.value());
    EXPECT_EQ(news, 1);
    drive(-1, 0.5);
    EXPECT_FALSE(bumper.value());
    EXPECT_EQ(news, 2);
}

TEST_F(BumperTest, TellsItsStateAsAnEvent)
{
    const std::vector<Event> events = bumper.state();
    ASSERT_EQ(events.size(), 1U);
    EXPECT_EQ(events[0].method.toStdString(), "bumper.changed");
    EXPECT_EQ(events[0].params, (QJsonObject{{QStringLiteral("value"), false}}));
}

TEST_F(BumperTest, IsHeldAsSetUntilItIsReleased)
{
    bumper.prepare(key, true).apply();
    EXPECT_TRUE(bumper.hasNews());
    EXPECT_TRUE(bumper.isHeld());
    drive(-1, 0.2);
    EXPECT_TRUE(bumper.value());
    bumper.release();
    EXPECT_TRUE(bumper.hasNews());
    EXPECT_FALSE(bumper.isHeld());
    EXPECT_FALSE(bumper.value());
}

TEST_F(BumperTest, TakesNothingButTrueAndFalse)
{
    EXPECT_EQ(bumper.prepare(key, 1).reason().toStdString(), "bumper must be true or false");
    EXPECT_FALSE(bumper.prepare(key, QJsonValue()).isAccepted());
}

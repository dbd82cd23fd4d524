#include "Odometry.h"

#include "Robot.h"
#include "support/worlds.h"

#include <gtest/gtest.h>

using namespace kor::veltrano::sim;

namespace {

class OdometryTest : public testing::Test
{
protected:
    // Gives the readings that were told.
    std::vector<QJsonObject> run(int steps)
    {
        std::vector<QJsonObject> told;
        for (int step = 0; step < steps; ++step) {
            robot.step(0.01);
            odometry.step(0.01);
            if (odometry.hasNews()) {
                told.push_back(odometry.takeNews().at(0).params);
            }
        }
        return told;
    }

    const QString key = QStringLiteral("odometry");
    const World world = emptyWorld();
    Robot robot{world};
    Odometry odometry{robot};
};

} // namespace

TEST_F(OdometryTest, TellsPoseAndVelocityTwentyFiveTimesASecond)
{
    robot
        .prepare(QStringLiteral("commandedVelocity"),
                 QJsonObject{{QStringLiteral("vx"), 0.5},
                             {QStringLiteral("vy"), -0.25},
                             {QStringLiteral("omega"), 1}})
        .apply();
    const std::vector<QJsonObject> told = run(100);
    ASSERT_EQ(told.size(), 25U);
    EXPECT_DOUBLE_EQ(told.back()["x"].toDouble(), robot.pose().x);
    EXPECT_DOUBLE_EQ(told.back()["y"].toDouble(), robot.pose().y);
    EXPECT_DOUBLE_EQ(told.back()["phi"].toDouble(), robot.pose().phi);
    EXPECT_DOUBLE_EQ(told.back()["vx"].toDouble(), 0.5);
    EXPECT_DOUBLE_EQ(told.back()["vy"].toDouble(), -0.25);
    EXPECT_DOUBLE_EQ(told.back()["omega"].toDouble(), 1);
}

TEST_F(OdometryTest, CountsItsReadings)
{
    const std::vector<QJsonObject> told = run(40);
    for (std::size_t index = 0; index < told.size(); ++index) {
        EXPECT_EQ(told[index]["sequence"].toInt(), static_cast<int>(index) + 1);
    }
}

TEST_F(OdometryTest, CountsTheSameWhetherOrNotAnybodyListens)
{
    for (int step = 0; step < 40; ++step) {
        odometry.step(0.01);
        odometry.dropNews();
    }
    EXPECT_EQ(odometry.state().at(0).params["sequence"].toInt(), 10);
}

TEST_F(OdometryTest, HoldsAnySubsetOfItsReadings)
{
    odometry.prepare(key, QJsonObject{{QStringLiteral("x"), 4.5}, {QStringLiteral("sequence"), -7}})
        .apply();
    ASSERT_TRUE(odometry.hasNews());
    const QJsonObject readings = odometry.takeNews().at(0).params;
    EXPECT_DOUBLE_EQ(readings["x"].toDouble(), 4.5);
    EXPECT_EQ(readings["sequence"].toInt(), -7);
    EXPECT_DOUBLE_EQ(readings["y"].toDouble(), 0);
    EXPECT_EQ(run(8).back(), readings);
    odometry.release();
    EXPECT_DOUBLE_EQ(odometry.readings()["x"].toDouble(), 0);
}

TEST_F(OdometryTest, RefusesMembersThatItDoesNotHaveOrOfAWrongType)
{
    const auto refusal = [this](const QJsonValue& value) {
        return odometry.prepare(key, value).reason().toStdString();
    };
    EXPECT_EQ(refusal(1), "odometry must be an object");
    EXPECT_EQ(refusal(QJsonObject{{QStringLiteral("z"), 1}}),
              "odometry has no member z; it has omega, phi, sequence, vx, vy, x, y");
    EXPECT_EQ(refusal(QJsonObject{{QStringLiteral("x"), true}}), "odometry.x must be a number");
    EXPECT_EQ(refusal(QJsonObject{{QStringLiteral("sequence"), 1.5}}),
              "odometry.sequence must be a whole number");
    EXPECT_FALSE(odometry.isHeld());
}

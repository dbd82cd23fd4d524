#include "Battery.h"

#include "Robot.h"
#include "support/worlds.h"

#include <gtest/gtest.h>

using namespace kor::veltrano::sim;

namespace {

class BatteryTest : public testing::Test
{
protected:
    void set(const QJsonObject& members) { battery.prepare(key, members).apply(); }

    const QString key = QStringLiteral("battery");
    const World world = emptyWorld();
    Robot robot{world};
    Battery battery{robot};
};

} // namespace

TEST_F(BatteryTest, DischargesAndMoreSoWhileDriving)
{
    const double full = battery.charge();
    battery.step(60);
    const double idleLoss = full - battery.charge();
    EXPECT_NEAR(idleLoss, 1.5 * 60 / (20 * 3600), 1e-9) << "1.5 A of 20 Ah";
    robot
        .prepare(QStringLiteral("velocity"),
                 QJsonObject{{QStringLiteral("vx"), 1},
                             {QStringLiteral("vy"), 0},
                             {QStringLiteral("omega"), 0}})
        .apply();
    const double idleVoltage = battery.voltageV();
    const double before = battery.charge();
    battery.step(60);
    EXPECT_GT(before - battery.charge(), idleLoss * 2);
    EXPECT_LT(battery.voltageV(), idleVoltage);
}

TEST_F(BatteryTest, IsFilledFromOutsideUpToItsLimit)
{
    set({{QStringLiteral("charge"), 0.5}, {QStringLiteral("externalPower"), true}});
    EXPECT_GT(battery.chargingA(), 0);
    EXPECT_DOUBLE_EQ(battery.loadA(), 0);
    battery.step(60);
    EXPECT_GT(battery.charge(), 0.5);
    for (int hour = 0; hour < 48; ++hour) {
        battery.step(3600);
    }
    EXPECT_LE(battery.charge(), 1);
    EXPECT_GT(battery.charge(), 0.99);
}

TEST_F(BatteryTest, CountsDownWhileItIsLow)
{
    EXPECT_FALSE(battery.isLow());
    EXPECT_EQ(battery.secondsLeft(), 60);
    set({{QStringLiteral("charge"), 0.1}});
    EXPECT_TRUE(battery.isLow());
    battery.step(10);
    EXPECT_EQ(battery.secondsLeft(), 50);
    battery.step(100);
    EXPECT_EQ(battery.secondsLeft(), 0);
    set({{QStringLiteral("externalPower"), true}});
    battery.step(0.01);
    EXPECT_EQ(battery.secondsLeft(), 60);
}

TEST_F(BatteryTest, NeverGoesBelowEmpty)
{
    set({{QStringLiteral("charge"), 0}});
    battery.step(100);
    EXPECT_DOUBLE_EQ(battery.charge(), 0);
}

TEST_F(BatteryTest, RefusesWhatItCannotBe)
{
    EXPECT_FALSE(battery.prepare(key, 1).isAccepted());
    EXPECT_FALSE(battery.prepare(key, QJsonObject{{QStringLiteral("charge"), 1.1}}).isAccepted());
    EXPECT_FALSE(
        battery.prepare(key, QJsonObject{{QStringLiteral("externalPower"), 1}}).isAccepted());
    EXPECT_EQ(battery.prepare(key, QJsonObject{{QStringLiteral("size"), 1}}).reason().toStdString(),
              "battery has no member size; it has charge, externalPower");
}

#include "PowerManagement.h"

#include "Battery.h"
#include "Robot.h"
#include "support/worlds.h"

#include <gtest/gtest.h>

using namespace kor::veltrano::sim;

namespace {

class PowerManagementTest : public testing::Test
{
protected:
    const World world = emptyWorld();
    Robot robot{world};
    Battery battery{robot};
    PowerManagement power{battery};
};

} // namespace

TEST_F(PowerManagementTest, TellsAllReadingsOnceASecond)
{
    for (int step = 0; step < 99; ++step) {
        power.step(0.01);
    }
    EXPECT_FALSE(power.hasNews());
    power.step(0.01);
    ASSERT_TRUE(power.hasNews());
    const std::vector<Event> news = power.takeNews();
    ASSERT_EQ(news.size(), 1U);
    EXPECT_EQ(news[0].method.toStdString(), "powerManagement.readings");
    const QJsonObject& readings = news[0].params;
    EXPECT_EQ(readings.size(), 7);
    EXPECT_DOUBLE_EQ(readings["voltage"].toDouble(), battery.voltageV());
    EXPECT_DOUBLE_EQ(readings["current"].toDouble(), battery.loadA());
    EXPECT_EQ(readings["ext_power"], QJsonValue(false));
    EXPECT_EQ(readings["num_chargers"], QJsonValue(2));
    EXPECT_TRUE(readings["batteryType"].isString());
    EXPECT_EQ(readings["batteryLow"], QJsonValue(false));
    EXPECT_EQ(readings["batteryLowShutdownCounter"], QJsonValue(60));
}

TEST_F(PowerManagementTest, IsHeldAsSetUntilItIsReleased)
{
    const QString key = QStringLiteral("powerManagement");
    power
        .prepare(key,
                 QJsonObject{{QStringLiteral("voltage"), 19.5},
                             {QStringLiteral("batteryType"), QString::fromUtf8("Zelle µ")}})
        .apply();
    EXPECT_DOUBLE_EQ(power.readings()["voltage"].toDouble(), 19.5);
    EXPECT_EQ(power.readings()["batteryType"].toString(), QString::fromUtf8("Zelle µ"));
    EXPECT_EQ(
        power.prepare(key, QJsonObject{{QStringLiteral("batteryLow"), 0}}).reason().toStdString(),
        "powerManagement.batteryLow must be true or false");
    EXPECT_EQ(
        power.prepare(key, QJsonObject{{QStringLiteral("batteryType"), 0}}).reason().toStdString(),
        "powerManagement.batteryType must be a text");
    power.release();
    EXPECT_DOUBLE_EQ(power.readings()["voltage"].toDouble(), battery.voltageV());
}

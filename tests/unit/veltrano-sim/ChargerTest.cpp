#include "Charger.h"

#include "Battery.h"
#include "Robot.h"
#include "support/worlds.h"

#include <gtest/gtest.h>

using namespace kor::veltrano::sim;

namespace {

class ChargerTest : public testing::Test
{
protected:
    void set(const QJsonObject& members) { charger.prepare(key, members).apply(); }
    QString stateWhenFed(double charge)
    {
        battery
            .prepare(QStringLiteral("battery"),
                     QJsonObject{{QStringLiteral("charge"), charge},
                                 {QStringLiteral("externalPower"), true}})
            .apply();
        return charger.readings()["state"].toString();
    }
    static std::vector<std::string> methods(const std::vector<Event>& events)
    {
        std::vector<std::string> result;
        result.reserve(events.size());
        for (const Event& event : events) {
            result.push_back(event.method.toStdString());
        }
        return result;
    }

    const QString key = QStringLiteral("charger1");
    const World world = emptyWorld();
    Robot robot{world};
    Battery battery{robot};
    Charger charger{battery, 1};
    using Texts = std::vector<std::string>;
};

} // namespace

TEST_F(ChargerTest, TellsReadingsAndVersionAfterHelloButNoErrorWhereThereIsNone)
{
    const std::vector<Event> state = charger.state();
    EXPECT_EQ(methods(state), (Texts{"charger.infoChanged", "charger.versionChanged"}));
    const QJsonObject& info = state[0].params;
    EXPECT_EQ(
        info.keys().join(QLatin1Char(' ')).toStdString(),
        "bat1temp bat2temp batteryVoltage chargerNumber chargingCurrent state state_number time");
    EXPECT_EQ(info["chargerNumber"].toInt(), 1);
    EXPECT_EQ(state[1].params.keys().join(QLatin1Char(' ')).toStdString(),
              "chargerNumber major minor patch");
}

TEST_F(ChargerTest, TellsOnlyItsReadingsEverySecond)
{
    charger.step(1);
    ASSERT_TRUE(charger.hasNews());
    EXPECT_EQ(methods(charger.takeNews()), (Texts{"charger.infoChanged"}));
    EXPECT_EQ(charger.readings()["time"].toInt(), 1);
}

TEST_F(ChargerTest, GoesThroughItsStatesAsTheBatteryFills)
{
    EXPECT_EQ(charger.readings()["state"].toString().toStdString(), "idle");
    EXPECT_EQ(stateWhenFed(0.5).toStdString(), "bulk");
    EXPECT_GT(charger.readings()["chargingCurrent"].toDouble(), 1);
    EXPECT_EQ(stateWhenFed(0.95).toStdString(), "absorption");
    EXPECT_EQ(stateWhenFed(0.999).toStdString(), "float");
    EXPECT_EQ(charger.readings()["state_number"].toInt(), 3);
}

TEST_F(ChargerTest, WarmsUpWhileItCharges)
{
    const double cold = charger.readings()["bat1temp"].toDouble();
    stateWhenFed(0.2);
    charger.step(60);
    EXPECT_GT(charger.readings()["bat1temp"].toDouble(), cold);
}

TEST_F(ChargerTest, TellsAnErrorAtOnceAndAfterEachHelloUntilItIsCleared)
{
    set({{QStringLiteral("error"), QStringLiteral("over temperature")}});
    EXPECT_FALSE(charger.isHeld());
    const std::vector<Event> news = charger.takeNews();
    EXPECT_EQ(methods(news), (Texts{"charger.infoChanged", "charger.errorChanged"}));
    EXPECT_EQ(news[1].params["message"].toString().toStdString(), "over temperature");
    EXPECT_EQ(news[1].params["chargerNumber"].toInt(), 1);
    EXPECT_TRUE(news[1].params["time"].isDouble());
    EXPECT_EQ(charger.state().size(), 3U);
    set({{QStringLiteral("error"), QString()}});
    EXPECT_EQ(methods(charger.takeNews()), (Texts{"charger.infoChanged", "charger.errorChanged"}));
    EXPECT_EQ(charger.state().size(), 2U);
}

TEST_F(ChargerTest, TellsANewVersionOnce)
{
    const QJsonObject version{
        {QStringLiteral("major"), 9}, {QStringLiteral("minor"), 8}, {QStringLiteral("patch"), 7}};
    set({{QStringLiteral("version"), version}});
    EXPECT_EQ(methods(charger.takeNews()),
              (Texts{"charger.infoChanged", "charger.versionChanged"}));
    charger.step(1);
    EXPECT_EQ(methods(charger.takeNews()), (Texts{"charger.infoChanged"}));
    EXPECT_EQ(charger.show().value(key)["version"].toObject(), version);
}

TEST_F(ChargerTest, HoldsItsReadingsUpToTheLargestTime)
{
    set({{QStringLiteral("time"), 4294967295.0}, {QStringLiteral("state"), QStringLiteral("odd")}});
    EXPECT_TRUE(charger.isHeld());
    charger.step(5);
    EXPECT_DOUBLE_EQ(charger.readings()["time"].toDouble(), 4294967295.0);
    EXPECT_EQ(charger.readings()["state"].toString().toStdString(), "odd");
    charger.release();
    EXPECT_EQ(charger.readings()["time"].toInt(), 5);
}

TEST_F(ChargerTest, RefusesWhatAChargerCannotTell)
{
    const auto refusal = [this](const QJsonValue& value) {
        return charger.prepare(key, value).reason().toStdString();
    };
    EXPECT_EQ(refusal(QJsonObject{{QStringLiteral("time"), -1}}),
              "charger1.time must be a whole number from 0 to 4294967295");
    EXPECT_EQ(refusal(QJsonObject{{QStringLiteral("error"), 1}}), "charger1.error must be a text");
    EXPECT_EQ(refusal(QJsonObject{
                  {QStringLiteral("version"), QJsonObject{{QStringLiteral("major"), 1}}}}),
              "charger1.version must hold the whole numbers major, minor and patch");
    EXPECT_EQ(refusal(QStringLiteral("x")), "charger1 must be an object");
}

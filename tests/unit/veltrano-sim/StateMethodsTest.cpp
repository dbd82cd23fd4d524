#include "StateMethods.h"

#include "support/RawClient.h"
#include "support/TestRobot.h"

#include <QJsonArray>
#include <QJsonDocument>

#include <gtest/gtest.h>

using namespace kor::veltrano::sim;

namespace {

struct Setting {
    const char* situation;
    // What state.set gets and what each client is told.
    const char* wish;
    const char* method;
    const char* params;
};

void PrintTo(const Setting& setting, std::ostream* out)
{
    *out << setting.situation;
}

QJsonObject object(const char* json)
{
    return QJsonDocument::fromJson(json).object();
}

class SettingTest : public testing::TestWithParam<Setting>
{
};

} // namespace

TEST_P(SettingTest, IsToldAtOnceAndKeptUntilItIsReleased)
{
    TestRobot robot;
    RawClient client(robot.port());
    client.open();
    robot.call(QStringLiteral("state.set"), object(GetParam().wish));
    const QString method = QString::fromLatin1(GetParam().method);
    const QJsonObject told = client.nextOf(method)["params"].toObject();
    const QJsonObject expected = object(GetParam().params);
    for (const QString& name : expected.keys()) {
        EXPECT_EQ(told[name], expected[name]) << name.toStdString();
    }
    EXPECT_FALSE(robot.state(QStringLiteral("held")).toArray().isEmpty());
    robot.step(300);
    client.untilPing();
    RawClient late(robot.port());
    late.sendLine(R"({"jsonrpc":"2.0","id":1,"method":"hello","params":{"protocol":1}})");
    EXPECT_EQ(late.nextOf(method)["params"], QJsonValue(told));
    robot.call(QStringLiteral("state.release"));
    EXPECT_TRUE(robot.state(QStringLiteral("held")).toArray().isEmpty());
    EXPECT_NE(client.nextOf(method)["params"], QJsonValue(told));
}

INSTANTIATE_TEST_SUITE_P(
    StateMethods, SettingTest,
    testing::Values(
        Setting{"AnalogInputs", R"({"analogInputs":[1,2,3,4,5,6,7,8.25]})",
                "analogInputArray.valuesChanged", R"({"values":[1,2,3,4,5,6,7,8.25]})"},
        Setting{"DigitalInputs", R"({"digitalInputs":[1,0,0,0,0,0,0,7]})",
                "digitalInputArray.valuesChanged", R"({"values":[1,0,0,0,0,0,0,7]})"},
        Setting{"Distances", R"({"distances":[1,2,3,4,5,6,7,8,9]})",
                "distanceSensorArray.distancesChanged", R"({"values":[1,2,3,4,5,6,7,8,9]})"},
        Setting{"Voltages", R"({"distanceVoltages":[1,2,3,4,5,6,7,8,9]})",
                "distanceSensorArray.voltagesChanged", R"({"values":[1,2,3,4,5,6,7,8,9]})"},
        Setting{"Bumper", R"({"bumper":true})", "bumper.changed", R"({"value":true})"},
        Setting{"Odometry", R"({"odometry":{"x":1.5,"phi":2,"vx":0.25,"sequence":99}})",
                "odometry.readings", R"({"x":1.5,"y":0,"phi":2,"vx":0.25,"sequence":99})"},
        Setting{"Power",
                R"({"powerManagement":{"voltage":18.5,"ext_power":true,"batteryLow":true}})",
                "powerManagement.readings",
                R"({"voltage":18.5,"ext_power":true,"batteryLow":true,"num_chargers":2})"},
        Setting{"Charger", R"({"charger0":{"time":2147483648,"state":"odd","state_number":77}})",
                "charger.infoChanged",
                R"({"chargerNumber":0,"time":2147483648,"state":"odd","state_number":77})"},
        Setting{"ControllerRecordAsBytes", R"({"controllerInfo":{"base64":"/wA="}})",
                "controllerInfo.infoChanged", R"({"data":"/wA="})"},
        Setting{"BatteryPackRecordAsText", R"({"festoolCharger":{"text":"<a/>"}})",
                "festoolCharger.infoChanged", R"({"data":"PGEvPg=="})"}),
    [](const auto& row) { return row.param.situation; });

TEST(StateMethodsTest, GetShowsEverything)
{
    const TestRobot robot;
    const QStringList members = robot.call(QStringLiteral("state.get")).keys();
    EXPECT_EQ(
        members.join(QLatin1Char(' ')).toStdString(),
        "analogInputs battery bumper camera charger0 charger1 clients commandedVelocity "
        "controllerInfo digitalInputs digitalOutputs distanceVoltages distances festoolCharger "
        "held laserRangeFinder odometry pose powerManagement relays subscriptions timeS velocity "
        "world");
}

TEST(StateMethodsTest, PoseVelocityOutputsAndBatteryAreSetButNotHeld)
{
    TestRobot robot;
    robot.call(QStringLiteral("state.set"), object(R"({
        "pose": {"x": 1, "y": 2, "phi": 0.5}, "velocity": {"vx": 1, "vy": 0, "omega": 0},
        "commandedVelocity": {"vx": 1, "vy": 0, "omega": 0},
        "digitalOutputs": [1, 0, 0, 0, 0, 0, 0, 0], "relays": [0, 1],
        "battery": {"charge": 0.5, "externalPower": true}})"));
    EXPECT_TRUE(robot.state(QStringLiteral("held")).toArray().isEmpty());
    EXPECT_DOUBLE_EQ(robot.state(QStringLiteral("odometry"))["y"].toDouble(), 2);
    robot.step();
    EXPECT_NE(robot.state(QStringLiteral("pose"))["x"].toDouble(), 1);
    EXPECT_EQ(robot.state(QStringLiteral("digitalInputs")).toArray().at(0).toInt(), 1);
    EXPECT_EQ(robot.state(QStringLiteral("relays")).toArray(), (QJsonArray{0, 1}));
    EXPECT_EQ(robot.state(QStringLiteral("powerManagement"))["ext_power"], QJsonValue(true));
}

TEST(StateMethodsTest, RefusalsNameTheMethodAndTheMember)
{
    const TestRobot robot;
    EXPECT_EQ(robot.refusal(QStringLiteral("state.set"), object(R"({"relays":[1]})")).toStdString(),
              "state.set: relays must be an array of 2 numbers 0 or 1");
    EXPECT_NE(robot.refusal(QStringLiteral("state.set"), object(R"({"timeS":1})")).toStdString(),
              "");
    EXPECT_EQ(robot.refusal(QStringLiteral("state.get"), object(R"({"a":1})")).toStdString(),
              "state.get: a is unknown here");
    EXPECT_EQ(robot.refusal(QStringLiteral("state.release"), object(R"({"devices":"bumper"})"))
                  .toStdString(),
              "state.release: devices must be an array of texts");
    EXPECT_NE(robot.refusal(QStringLiteral("state.release"), object(R"({"devices":["bumpr"]})"))
                  .toStdString(),
              "");
}

TEST(StateMethodsTest, AWishThatIsRefusedTellsClientsNothing)
{
    TestRobot robot;
    RawClient client(robot.port());
    client.open();
    robot.refusal(QStringLiteral("state.set"), object(R"({"bumper":true,"relays":1})"));
    EXPECT_TRUE(client.untilPing().empty());
}

#include "RpcServer.h"

#include "RpcSession.h"
#include "support/RawClient.h"
#include "support/TestRobot.h"
#include "support/waiting.h"
#include "support/worlds.h"

#include <QJsonArray>
#include <QJsonDocument>

#include <algorithm>
#include <gtest/gtest.h>

using namespace kor::veltrano::sim;

namespace {

using Texts = std::vector<std::string>;

const QByteArray hello = R"({"jsonrpc":"2.0","id":1,"method":"hello","params":{"protocol":1}})";
const Texts presentState{"analogInputArray.valuesChanged",
                         "digitalInputArray.valuesChanged",
                         "distanceSensorArray.distancesChanged",
                         "distanceSensorArray.voltagesChanged",
                         "bumper.changed",
                         "odometry.readings",
                         "powerManagement.readings",
                         "charger.infoChanged",
                         "charger.versionChanged",
                         "charger.infoChanged",
                         "charger.versionChanged",
                         "controllerInfo.infoChanged",
                         "festoolCharger.infoChanged"};

std::ptrdiff_t count(const Texts& methods, const char* method)
{
    return std::count(methods.begin(), methods.end(), method);
}

} // namespace

TEST(RpcServerTest, TellsThePresentStateOfEveryDeviceOnceAfterHello)
{
    TestRobot robot;
    RawClient client(robot.port());
    client.sendLine(hello);
    client.answer(1);
    EXPECT_EQ(methodsOf(client.untilPing()), presentState);
    EXPECT_TRUE(client.untilPing().empty());
}

TEST(RpcServerTest, TellsAChargersErrorAfterHelloWhereThereIsOne)
{
    TestRobot robot;
    robot.set(QStringLiteral("charger1"),
              QJsonObject{{QStringLiteral("error"), QStringLiteral("hot")}});
    RawClient client(robot.port());
    client.sendLine(hello);
    client.answer(1);
    const QJsonValue error = client.nextOf(QStringLiteral("charger.errorChanged"));
    EXPECT_EQ(error["params"]["chargerNumber"].toInt(), 1);
    EXPECT_EQ(error["params"]["message"].toString().toStdString(), "hot");
}

TEST(RpcServerTest, TellsTheStateOnlyOnceHoweverOftenAClientSaysHello)
{
    TestRobot robot;
    RawClient client(robot.port());
    client.open();
    client.sendLine(hello);
    client.answer(1);
    EXPECT_TRUE(client.untilPing().empty());
}

TEST(RpcServerTest, TellsWhatIsMeasuredAtItsRate)
{
    TestRobot robot;
    RawClient client(robot.port());
    client.open();
    robot.step(200);
    const Texts methods = methodsOf(client.untilPing());
    EXPECT_EQ(count(methods, "odometry.readings"), 50);
    EXPECT_EQ(count(methods, "distanceSensorArray.distancesChanged"), 20);
    EXPECT_EQ(count(methods, "distanceSensorArray.voltagesChanged"), 20);
    EXPECT_EQ(count(methods, "analogInputArray.valuesChanged"), 10);
    EXPECT_EQ(count(methods, "powerManagement.readings"), 2);
    EXPECT_EQ(count(methods, "charger.infoChanged"), 4);
    EXPECT_EQ(count(methods, "controllerInfo.infoChanged"), 1);
    EXPECT_EQ(count(methods, "festoolCharger.infoChanged"), 1);
    EXPECT_EQ(methods.size(), 50U + 20 + 20 + 10 + 2 + 4 + 1 + 1) << "nothing else has changed";
}

TEST(RpcServerTest, TellsBumperAndDigitalInputsWithinAStepOfTheirChange)
{
    TestRobot robot(squareRoom(1));
    RawClient client(robot.port());
    client.open();
    client.sendLine(
        R"({"jsonrpc":"2.0","method":"digitalOutputArray.setValues","params":{"values":[0,1,0,0,0,0,0,1]}})");
    client.sendLine(
        R"({"jsonrpc":"2.0","method":"omniDrive.setVelocity","params":{"vx":2,"vy":0,"omega":0}})");
    client.untilPing();
    robot.step();
    const std::vector<QJsonObject> first = client.untilPing();
    ASSERT_EQ(methodsOf(first), Texts{"digitalInputArray.valuesChanged"});
    EXPECT_EQ(first[0]["params"]["values"].toArray(), (QJsonArray{0, 1, 0, 0, 0, 0, 0, 1}));
    robot.step(200);
    const std::vector<QJsonObject> later = client.untilPing();
    EXPECT_EQ(count(methodsOf(later), "bumper.changed"), 1);
}

TEST(RpcServerTest, ServesSeveralClientsAtOnce)
{
    TestRobot robot;
    RawClient first(robot.port());
    RawClient second(robot.port());
    first.open();
    second.open();
    robot.set(QStringLiteral("bumper"), true);
    EXPECT_EQ(methodsOf(first.untilPing()), Texts{"bumper.changed"});
    EXPECT_EQ(methodsOf(second.untilPing()), Texts{"bumper.changed"});
    EXPECT_EQ(robot.state(QStringLiteral("clients")).toInt(), 2);
}

TEST(RpcServerTest, TellsALateClientThePresentAndNotThePast)
{
    TestRobot robot;
    RawClient early(robot.port());
    early.open();
    robot.set(QStringLiteral("bumper"), true);
    robot.set(QStringLiteral("bumper"), false);
    RawClient late(robot.port());
    late.sendLine(hello);
    late.answer(1);
    EXPECT_EQ(late.nextOf(QStringLiteral("bumper.changed"))["params"]["value"], QJsonValue(false));
}

TEST(RpcServerTest, RemembersSubscriptionsForEachClient)
{
    TestRobot robot;
    RawClient first(robot.port());
    RawClient second(robot.port());
    first.open();
    second.open();
    const auto counts = [&robot] {
        return robot.state(QStringLiteral("subscriptions")).toObject();
    };
    EXPECT_EQ(
        counts(),
        (QJsonObject{{QStringLiteral("camera"), 0}, {QStringLiteral("laserRangeFinder"), 0}}));
    first.sendLine(R"({"jsonrpc":"2.0","method":"camera.subscribe","params":{}})");
    first.sendLine(R"({"jsonrpc":"2.0","method":"camera.subscribe","params":{}})");
    first.sendLine(R"({"jsonrpc":"2.0","method":"laserRangeFinder.subscribe","params":{}})");
    second.sendLine(R"({"jsonrpc":"2.0","method":"camera.subscribe"})");
    first.untilPing();
    second.untilPing();
    EXPECT_EQ(
        counts(),
        (QJsonObject{{QStringLiteral("camera"), 2}, {QStringLiteral("laserRangeFinder"), 1}}));
    first.sendLine(R"({"jsonrpc":"2.0","method":"camera.unsubscribe","params":{}})");
    first.untilPing();
    EXPECT_EQ(
        counts(),
        (QJsonObject{{QStringLiteral("camera"), 1}, {QStringLiteral("laserRangeFinder"), 1}}));
}

TEST(RpcServerTest, GoesOnWhenAClientLeaves)
{
    TestRobot robot;
    {
        RawClient leaving(robot.port());
        leaving.open();
    }
    RawClient staying(robot.port());
    staying.open();
    EXPECT_TRUE(waitUntil([&robot] { return robot.server.sessions().size() == 1; }));
    robot.set(QStringLiteral("bumper"), true);
    EXPECT_EQ(methodsOf(staying.untilPing()), Texts{"bumper.changed"});
}

TEST(RpcServerTest, SaysWhyItCannotListen)
{
    TestRobot robot;
    CommandLog log;
    RpcServer second(robot.simulation, log, 1);
    EXPECT_EQ(second.listen(robot.server.address()).toStdString(),
              "The bound address is already in use");
}

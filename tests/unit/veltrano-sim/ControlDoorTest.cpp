#include "ControlDoor.h"

#include "ControlHelp.h"
#include "support/RawClient.h"
#include "support/TestRobot.h"
#include "support/waiting.h"

#include <gtest/gtest.h>

using namespace kor::veltrano::sim;

namespace {

class ControlDoorTest : public testing::Test
{
protected:
    TestRobot robot;
    RawClient client{robot.controlPort()};
};

} // namespace

TEST_F(ControlDoorTest, AnswersARequestWithItsResult)
{
    client.sendLine(R"({"jsonrpc":"2.0","id":"x","method":"state.set","params":{"bumper":true}})");
    const QJsonValue answer = client.next();
    EXPECT_EQ(answer["id"].toString().toStdString(), "x");
    EXPECT_EQ(answer["result"], QJsonValue(QJsonObject()));
    client.sendLine(R"({"jsonrpc":"2.0","id":2,"method":"state.get"})");
    EXPECT_EQ(client.answer(2)["result"]["bumper"], QJsonValue(true));
}

TEST_F(ControlDoorTest, AnswersAnErrorThatHelps)
{
    client.sendLine(R"({"jsonrpc":"2.0","id":1,"method":"state.got"})");
    const QJsonObject unknown = client.answer(1)["error"].toObject();
    EXPECT_EQ(unknown["code"].toInt(), -32601);
    EXPECT_TRUE(unknown["message"].toString().contains(QStringLiteral("state.get")));
    client.sendLine(R"({"jsonrpc":"2.0","id":2,"method":"clients.mute","params":{}})");
    const QJsonObject bad = client.answer(2)["error"].toObject();
    EXPECT_EQ(bad["code"].toInt(), -32602);
    EXPECT_EQ(bad["message"].toString().toStdString(), "clients.mute: on is missing");
}

TEST_F(ControlDoorTest, CarriesOutANotificationWithoutAnAnswer)
{
    client.sendLine(R"({"jsonrpc":"2.0","method":"state.set","params":{"bumper":true}})");
    client.sendLine(R"({"jsonrpc":"2.0","id":2,"method":"state.get"})");
    EXPECT_EQ(client.next()["result"]["bumper"], QJsonValue(true));
}

TEST_F(ControlDoorTest, AnswersGarbageWithAnErrorAndEndsTheConnection)
{
    client.sendLine("state.get");
    EXPECT_EQ(client.next()["error"]["code"].toInt(), -32700);
    EXPECT_TRUE(client.waitForEnd());
}

TEST_F(ControlDoorTest, ServesSeveralClients)
{
    RawClient second(robot.controlPort());
    second.sendLine(R"({"jsonrpc":"2.0","id":1,"method":"state.set","params":{"bumper":true}})");
    second.answer(1);
    client.sendLine(R"({"jsonrpc":"2.0","id":1,"method":"state.get"})");
    EXPECT_EQ(client.answer(1)["result"]["bumper"], QJsonValue(true));
}

TEST_F(ControlDoorTest, AsksForTheProgramsEndAfterTheAnswerToQuit)
{
    bool isAsked = false;
    QObject::connect(&robot.door, &ControlDoor::quitRequested, [&isAsked] { isAsked = true; });
    client.sendLine(R"({"jsonrpc":"2.0","id":1,"method":"sim.quit","params":{"now":1}})");
    EXPECT_TRUE(client.answer(1)["error"].isObject());
    EXPECT_FALSE(isAsked);
    client.sendLine(R"({"jsonrpc":"2.0","id":2,"method":"sim.quit"})");
    EXPECT_TRUE(client.answer(2)["result"].isObject());
    EXPECT_TRUE(isAsked);
}

TEST_F(ControlDoorTest, IsDescribedWholeByTheHelp)
{
    const QString help = controlHelp();
    const QStringList names = robot.methods.names();
    EXPECT_EQ(names.size(), 15);
    for (const QString& name : names) {
        EXPECT_TRUE(help.contains(QStringLiteral("\n  %1 {").arg(name))) << name.toStdString();
    }
    EXPECT_EQ(help.count(QStringLiteral(" {")), names.size()) << "the help names nothing else";
}

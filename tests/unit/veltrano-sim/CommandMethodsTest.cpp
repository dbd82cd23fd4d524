#include "CommandMethods.h"

#include "support/RawClient.h"
#include "support/TestRobot.h"

#include <QJsonArray>

#include <gtest/gtest.h>

using namespace kor::veltrano::sim;

namespace {

class CommandMethodsTest : public testing::Test
{
protected:
    CommandMethodsTest() { client.open(); }

    QJsonArray list(const QJsonObject& params = {}) const
    {
        return robot.call(QStringLiteral("commands.list"), params)["commands"].toArray();
    }

    TestRobot robot;
    RawClient client{robot.port()};
};

} // namespace

TEST_F(CommandMethodsTest, ListWhatClientsHaveCommandedWhetherOrNotItFitted)
{
    client.sendLine(
        R"({"jsonrpc":"2.0","method":"omniDrive.setVelocity","params":{"vx":0.5,"vy":0,"omega":1}})");
    client.sendLine(R"({"jsonrpc":"2.0","method":"relayArray.setValues","params":{"values":[1]}})");
    client.sendLine(R"({"jsonrpc":"2.0","method":"camera.subscribe","params":{}})");
    client.untilPing();
    const QJsonArray commands = list();
    ASSERT_EQ(commands.size(), 3);
    EXPECT_EQ(commands[0]["index"].toInt(), 0);
    EXPECT_EQ(commands[0]["client"].toInt(), 1);
    EXPECT_EQ(commands[0]["method"].toString().toStdString(), "omniDrive.setVelocity");
    EXPECT_EQ(commands[0]["params"]["vx"].toDouble(), 0.5);
    EXPECT_EQ(commands[0]["carriedOut"], QJsonValue(true));
    EXPECT_EQ(commands[1]["carriedOut"], QJsonValue(false));
    EXPECT_EQ(commands[2]["carriedOut"], QJsonValue(true));
    EXPECT_EQ(list({{QStringLiteral("since"), 2}}).size(), 1);
}

TEST_F(CommandMethodsTest, ClearForgetsThemAndGoesOnCounting)
{
    client.sendLine(R"({"jsonrpc":"2.0","method":"camera.subscribe"})");
    client.untilPing();
    robot.call(QStringLiteral("commands.clear"));
    EXPECT_TRUE(list().isEmpty());
    client.sendLine(R"({"jsonrpc":"2.0","method":"camera.unsubscribe"})");
    client.untilPing();
    EXPECT_EQ(list().at(0)["index"].toInt(), 1);
}

TEST_F(CommandMethodsTest, RefuseWhatDoesNotFit)
{
    EXPECT_EQ(robot.refusal(QStringLiteral("commands.list"), {{QStringLiteral("since"), -1}})
                  .toStdString(),
              "commands.list: since must be a whole number from 0 to 9007199254740992");
    EXPECT_EQ(
        robot.refusal(QStringLiteral("commands.clear"), {{QStringLiteral("now"), 1}}).toStdString(),
        "commands.clear: now is unknown here");
}

#include "RpcSession.h"

#include "support/RawClient.h"
#include "support/TestRobot.h"
#include "support/waiting.h"

#include <QElapsedTimer>

#include <gtest/gtest.h>

using namespace kor::veltrano::sim;

namespace {

const QByteArray hello = R"({"jsonrpc":"2.0","id":1,"method":"hello","params":{"protocol":1}})";
const QByteArray drive =
    R"({"jsonrpc":"2.0","method":"omniDrive.setVelocity","params":{"vx":1,"vy":0,"omega":0}})";

class RpcSessionTest : public testing::Test
{
protected:
    double commandedVx() const
    {
        return robot.state(QStringLiteral("commandedVelocity"))["vx"].toDouble();
    }

    TestRobot robot;
    RawClient client{robot.port()};
};

} // namespace

TEST_F(RpcSessionTest, AnswersHelloWithTheProtocolAndAName)
{
    client.sendLine(hello);
    const QJsonObject result = client.next()["result"].toObject();
    EXPECT_EQ(result["protocol"].toInt(), 1);
    EXPECT_EQ(result["robot"].toString().toStdString(), "veltrano-sim");
}

TEST_F(RpcSessionTest, AnswersPing)
{
    client.sendLine(R"({"jsonrpc":"2.0","id":"p","method":"ping"})");
    const QJsonValue answer = client.next();
    EXPECT_EQ(answer["id"].toString().toStdString(), "p");
    EXPECT_EQ(answer["result"], QJsonValue(QJsonObject()));
    EXPECT_EQ(answer["jsonrpc"].toString().toStdString(), "2.0");
}

TEST_F(RpcSessionTest, AnswersAnUnknownRequestWithTheErrorForIt)
{
    client.sendLine(R"({"jsonrpc":"2.0","id":7,"method":"omniDrive.setVelocity"})");
    EXPECT_EQ(client.answer(7)["error"]["code"].toInt(), -32601);
}

TEST_F(RpcSessionTest, AnswersAHelloWithoutAProtocolWithAnError)
{
    client.sendLine(R"({"jsonrpc":"2.0","id":7,"method":"hello"})");
    EXPECT_EQ(client.answer(7)["error"]["code"].toInt(), -32602);
    EXPECT_TRUE(client.untilPing().empty());
}

TEST_F(RpcSessionTest, TellsAClientOfAnotherProtocolItsOwnAndNothingMore)
{
    client.sendLine(R"({"jsonrpc":"2.0","id":7,"method":"hello","params":{"protocol":2}})");
    EXPECT_EQ(client.answer(7)["result"]["protocol"].toInt(), 1);
    EXPECT_TRUE(client.untilPing().empty());
}

TEST_F(RpcSessionTest, SendsNothingBeforeHello)
{
    robot.step(300);
    EXPECT_TRUE(client.untilPing().empty());
}

TEST_F(RpcSessionTest, IgnoresCommandsBeforeHello)
{
    client.sendLine(drive);
    client.untilPing();
    EXPECT_DOUBLE_EQ(commandedVx(), 0);
    client.open();
    client.sendLine(drive);
    client.untilPing();
    EXPECT_DOUBLE_EQ(commandedVx(), 1);
}

TEST_F(RpcSessionTest, IgnoresWhatDoesNotFitAndGoesOn)
{
    client.open();
    client.sendLine(drive);
    for (
        const char* const line :
        {R"({"jsonrpc":"2.0","method":"omniDrive.setVelocity"})",
         R"({"jsonrpc":"2.0","method":"omniDrive.setVelocity","params":[1,2,3]})",
         R"({"jsonrpc":"2.0","method":"omniDrive.setVelocity","params":{"vx":"0","vy":0,"omega":0}})",
         R"({"jsonrpc":"2.0","method":"digitalOutputArray.setValues","params":{"values":[1,1]}})",
         R"({"jsonrpc":"2.0","method":"warp.engage","params":{"factor":9}})", R"({"method":5})",
         R"({"jsonrpc":"2.0","id":5,"result":{}})", R"({})", "", "\r"}) {
        client.sendLine(line);
        if (QByteArray(line) == "\r") {
            continue;
        }
        EXPECT_TRUE(client.untilPing().empty()) << line;
    }
    EXPECT_DOUBLE_EQ(commandedVx(), 1);
}

class GarbageTest : public testing::TestWithParam<const char*>
{
};

TEST_P(GarbageTest, EndsTheConnection)
{
    TestRobot robot;
    RawClient client(robot.port());
    client.open();
    client.keepTalking();
    client.sendLine(GetParam());
    EXPECT_TRUE(client.waitForEnd());
    EXPECT_TRUE(waitUntil([&robot] { return robot.server.sessions().empty(); }));
}

INSTANTIATE_TEST_SUITE_P(RpcSession, GarbageTest,
                         testing::Values("GET / HTTP/1.1", "[1,2]", "5", "{\"a\":", "\xff\xfe{}",
                                         "null", "\"text\"", "{}{}"));

TEST_F(RpcSessionTest, EndsAConnectionWhoseLineIsTooLong)
{
    client.open();
    client.keepTalking();
    client.send(QByteArray(LineSocket::mostUnsentBytes, ' '));
    EXPECT_TRUE(client.waitForEnd());
}

TEST_F(RpcSessionTest, TakesALineOfJustTheLimit)
{
    client.open();
    const QByteArray start = R"({"jsonrpc":"2.0","id":9,"method":"ping","params":{"text":")";
    const QByteArray end = R"("}})";
    const int filling = 8 * 1024 * 1024 - start.size() - end.size();
    client.sendLine(start + QByteArray(filling, 'x') + end);
    EXPECT_TRUE(client.answer(9)["result"].isObject());
}

TEST_F(RpcSessionTest, ReadsMessagesHoweverTheyAreCutIntoPieces)
{
    client.open();
    for (const char byte : drive + '\n') {
        client.send(QByteArray(1, byte));
        waitUntil([] { return true; });
    }
    client.untilPing();
    EXPECT_DOUBLE_EQ(commandedVx(), 1);
    client.send("\n\n" + drive + "\n" + R"({"jsonrpc":"2.0","id":8,"method":"ping"})" + "\n");
    EXPECT_TRUE(client.answer(8).isObject());
}

TEST_F(RpcSessionTest, EndsAConnectionThatIsSilentForFiveSecondsAndNoOther)
{
    QElapsedTimer clock;
    clock.start();
    RawClient mute(robot.port());
    RawClient talker(robot.port());
    client.open();
    talker.open();
    talker.keepTalking();
    EXPECT_TRUE(mute.waitForEnd()) << "a client that has never said anything is silent as well";
    EXPECT_TRUE(client.waitForEnd());
    EXPECT_GE(clock.elapsed(), 5000);
    EXPECT_LT(clock.elapsed(), 15000);
    EXPECT_TRUE(talker.isConnected());
    EXPECT_EQ(robot.server.sessions().size(), 1U);
}

TEST_F(RpcSessionTest, DropsAClientThatDoesNotRead)
{
    client.open();
    client.stopReading();
    const QJsonObject megabyte{{QStringLiteral("text"), QString(1024 * 1024, QLatin1Char('x'))}};
    int sent = 0;
    while (!robot.server.sessions().empty() && sent < 100) {
        robot.call(QStringLiteral("clients.sendRaw"), megabyte);
        ++sent;
        waitUntil([] { return true; });
    }
    EXPECT_TRUE(robot.server.sessions().empty());
    EXPECT_GT(sent, 15) << "what a client may leave unread is generous";
}

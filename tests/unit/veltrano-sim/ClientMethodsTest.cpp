#include "ClientMethods.h"

#include "RpcSession.h"
#include "support/RawClient.h"
#include "support/TestRobot.h"
#include "support/waiting.h"

#include <QElapsedTimer>
#include <QJsonArray>
#include <QJsonDocument>

#include <gtest/gtest.h>

using namespace kor::veltrano::sim;

namespace {

const QByteArray hello = R"({"jsonrpc":"2.0","id":1,"method":"hello","params":{"protocol":1}})";
const QByteArray drive =
    R"({"jsonrpc":"2.0","method":"omniDrive.setVelocity","params":{"vx":1,"vy":0,"omega":0}})";
const QByteArray halt =
    R"({"jsonrpc":"2.0","method":"omniDrive.setVelocity","params":{"vx":0,"vy":0,"omega":0}})";

QJsonObject object(const char* json)
{
    return QJsonDocument::fromJson(json).object();
}

class ClientMethodsTest : public testing::Test
{
protected:
    ClientMethodsTest() { client.open(); }

    QJsonObject call(const char* method, const char* params = "{}") const
    {
        return robot.call(QString::fromLatin1(method), object(params));
    }
    std::string refusal(const char* method, const char* params) const
    {
        return robot.refusal(QString::fromLatin1(method), object(params)).toStdString();
    }
    QJsonObject first() const { return call("clients.list")["clients"].toArray().at(0).toObject(); }

    TestRobot robot;
    RawClient client{robot.port()};
};

} // namespace

TEST_F(ClientMethodsTest, SendEventSendsANotificationAsGiven)
{
    call("clients.sendEvent", R"({"method":"odometry.readings","params":{"x":"wrong"}})");
    EXPECT_EQ(client.next().toObject(),
              object(R"({"jsonrpc":"2.0","method":"odometry.readings","params":{"x":"wrong"}})"));
    call("clients.sendEvent", R"({"method":5,"params":[1]})");
    EXPECT_EQ(client.next().toObject(), object(R"({"jsonrpc":"2.0","method":5,"params":[1]})"));
    call("clients.sendEvent", R"({"method":"bare"})");
    EXPECT_EQ(client.next().toObject(), object(R"({"jsonrpc":"2.0","method":"bare"})"));
    EXPECT_EQ(refusal("clients.sendEvent", "{}"), "clients.sendEvent: method is missing");
}

TEST_F(ClientMethodsTest, SendRequestKeepsTheAnswersForTheList)
{
    call("clients.sendRequest", R"({"method":"whatever","id":"a","params":{"n":1}})");
    EXPECT_EQ(client.next().toObject(),
              object(R"({"jsonrpc":"2.0","method":"whatever","id":"a","params":{"n":1}})"));
    client.sendLine(R"({"jsonrpc":"2.0","id":"a","error":{"code":-32601,"message":"no"}})");
    client.sendLine(R"({"jsonrpc":"2.0","id":5,"result":{"ok":true}})");
    client.untilPing();
    const QJsonArray answers = first()["answers"].toArray();
    ASSERT_EQ(answers.size(), 2);
    EXPECT_EQ(answers[0].toObject(),
              object(R"({"id":"a","error":{"code":-32601,"message":"no"}})"));
    EXPECT_EQ(answers[1].toObject(), object(R"({"id":5,"result":{"ok":true}})"));
    EXPECT_EQ(refusal("clients.sendRequest", R"({"method":"a"})"),
              "clients.sendRequest: id is missing");
}

TEST_F(ClientMethodsTest, SendRawSendsBytesOftenEnough)
{
    call("clients.sendRaw", R"({"text":"{\"method\":\"µ\"}\n"})");
    EXPECT_EQ(client.next().toObject(), object(R"({"method":"µ"})"));
    call("clients.sendRaw", R"({"base64":"e30K","repeat":3})");
    client.untilPing();
    call("clients.sendRaw", R"({"text":"{}\n","repeat":3})");
    EXPECT_EQ(client.untilPing().size(), 3U);
}

TEST_F(ClientMethodsTest, SendRawRefusesWhatIsTooMuchOrNoBytes)
{
    EXPECT_EQ(refusal("clients.sendRaw", "{}"),
              "clients.sendRaw: either text or base64 must be given, as a text");
    EXPECT_NE(refusal("clients.sendRaw", R"({"text":"a","base64":"YQ=="})"), "");
    EXPECT_NE(refusal("clients.sendRaw", R"({"base64":"%"})"), "");
    EXPECT_EQ(refusal("clients.sendRaw", R"({"text":"ab","repeat":12582912})"),
              "clients.sendRaw: all bytes together must be at most 12582912");
    EXPECT_NE(refusal("clients.sendRaw", R"({"text":"ab","repeat":0})"), "");
    EXPECT_TRUE(client.untilPing().empty());
}

TEST_F(ClientMethodsTest, SendRawCanSendALineThatIsTooLong)
{
    call("clients.sendRaw", R"({"text":"x","repeat":9000000})");
    // The client's own reader gives up; the robot does not end the connection for it.
    EXPECT_TRUE(waitUntil([this] { return first()["unsentBytes"].toDouble() == 0; }));
    EXPECT_TRUE(client.isConnected());
}

TEST_F(ClientMethodsTest, DropEndsConnectionsAndRefusesNewOnesForAWhile)
{
    const quint16 port = robot.port();
    call("clients.drop", R"({"forMs":150})");
    QElapsedTimer clock;
    clock.start();
    EXPECT_TRUE(client.waitForEnd());
    QTcpSocket refused;
    refused.connectToHost(QStringLiteral("127.0.0.1"), port);
    ASSERT_TRUE(
        waitUntil([&refused] { return refused.state() == QAbstractSocket::UnconnectedState; }));
    EXPECT_EQ(refused.error(), QAbstractSocket::ConnectionRefusedError);
    bool isConnected = false;
    while (!isConnected && clock.elapsed() < 20000) {
        QTcpSocket again;
        again.connectToHost(QStringLiteral("127.0.0.1"), port);
        waitUntil([&again] { return again.state() != QAbstractSocket::ConnectingState; });
        isConnected = again.state() == QAbstractSocket::ConnectedState;
    }
    EXPECT_GE(clock.elapsed(), 150);
    RawClient back(port);
    back.open();
}

TEST_F(ClientMethodsTest, DropForNoTimeOnlyEndsTheConnections)
{
    call("clients.drop", R"({"forMs":0})");
    EXPECT_TRUE(client.waitForEnd());
    RawClient(robot.port()).open();
    EXPECT_NE(refusal("clients.drop", "{}"), "");
    EXPECT_NE(refusal("clients.drop", R"({"forMs":-1})"), "");
}

TEST_F(ClientMethodsTest, DelayKeepsMessagesBackInBothDirectionsAndInOrder)
{
    call("clients.delay", R"({"ms":80})");
    QElapsedTimer clock;
    clock.start();
    client.sendLine(drive);
    client.sendLine(halt);
    robot.set(QStringLiteral("bumper"), true);
    const std::vector<QJsonObject> messages = client.untilPing();
    EXPECT_GE(clock.elapsed(), 79);
    ASSERT_EQ(messages.size(), 1U);
    ASSERT_TRUE(waitUntil([this] { return robot.log.list(0)["commands"].toArray().size() == 2; }));
    const QJsonArray commands = robot.log.list(0)["commands"].toArray();
    EXPECT_EQ(commands[0]["params"]["vx"].toInt(), 1);
    EXPECT_EQ(commands[1]["params"]["vx"].toInt(), 0);
    call("clients.delay", R"({"ms":0})");
    client.untilPing();
    EXPECT_NE(refusal("clients.delay", R"({"ms":60001})"), "");
}

TEST_F(ClientMethodsTest, LoseLosesEventsWithItsProbabilityButNoAnswers)
{
    call("clients.lose", R"({"probability":1})");
    robot.set(QStringLiteral("bumper"), true);
    EXPECT_TRUE(client.untilPing().empty());
    call("clients.lose", R"({"probability":0.5})");
    robot.step(1000);
    const std::size_t received = client.untilPing().size();
    EXPECT_GT(received, 170U) << "of about 530";
    EXPECT_LT(received, 370U);
    EXPECT_NE(refusal("clients.lose", R"({"probability":1.1})"), "");
}

TEST_F(ClientMethodsTest, LoseDrawsTheSameForTheSameSeed)
{
    const auto run = [] {
        TestRobot own;
        RawClient listener(own.port());
        listener.open();
        own.call(QStringLiteral("clients.lose"), {{QStringLiteral("probability"), 0.5}});
        own.step(100);
        return methodsOf(listener.untilPing());
    };
    EXPECT_EQ(run(), run());
}

TEST_F(ClientMethodsTest, MuteSendsNothingButStillObeys)
{
    call("clients.mute", R"({"on":true})");
    robot.set(QStringLiteral("bumper"), true);
    client.sendLine(R"({"jsonrpc":"2.0","id":50,"method":"ping"})");
    client.sendLine(drive);
    ASSERT_TRUE(waitUntil([this] { return robot.log.list(0)["commands"].toArray().size() == 1; }));
    call("clients.mute", R"({"on":false})");
    EXPECT_TRUE(client.untilPing().empty()) << "what was missed stays missed";
    robot.set(QStringLiteral("bumper"), false);
    EXPECT_EQ(client.untilPing().size(), 1U);
    EXPECT_NE(refusal("clients.mute", R"({"on":1})"), "");
}

TEST_F(ClientMethodsTest, ProtocolAnswersHelloWithAnother)
{
    call("clients.protocol", R"({"version":2})");
    RawClient other(robot.port());
    other.sendLine(hello);
    EXPECT_EQ(other.answer(1)["result"]["protocol"].toInt(), 2);
    EXPECT_TRUE(other.untilPing().empty()) << "no state for a client that has to leave";
    call("clients.protocol", R"({"version":1})");
    RawClient(robot.port()).open();
    EXPECT_NE(refusal("clients.protocol", R"({"version":"2"})"), "");
}

TEST_F(ClientMethodsTest, ListShowsConnectionsAndFaults)
{
    client.sendLine(R"({"jsonrpc":"2.0","method":"camera.subscribe"})");
    client.untilPing();
    const QJsonObject shown = first();
    EXPECT_EQ(shown["client"].toInt(), 1);
    EXPECT_TRUE(shown["address"].toString().startsWith(QStringLiteral("127.0.0.1:")));
    EXPECT_EQ(shown["up"], QJsonValue(true));
    EXPECT_EQ(shown["subscriptions"].toArray(), QJsonArray{QStringLiteral("camera")});
    EXPECT_TRUE(shown["answers"].toArray().isEmpty());
    EXPECT_TRUE(shown["connectedMs"].isDouble());
    EXPECT_EQ(call("clients.list")["faults"].toObject(),
              object(R"({"delayMs":0,"loseProbability":0,"isMuted":false,"protocol":1})"));
    RawClient silent(robot.port());
    ASSERT_TRUE(waitUntil([this] { return robot.server.sessions().size() == 2; }));
    const QJsonArray clients = call("clients.list")["clients"].toArray();
    EXPECT_EQ(clients[1]["up"], QJsonValue(false));
}

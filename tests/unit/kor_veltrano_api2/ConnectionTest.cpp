#include "RecordingCom.h"

#include "kor/veltrano/api2/Bumper.h"

#include <QJsonArray>

using namespace kor::veltrano::api2;
using namespace std::chrono_literals;

namespace {

using Clock = std::chrono::steady_clock;
using Events = std::vector<std::string>;

class ConnectionTest : public ConnectedTest
{
};

TEST_F(ConnectionTest, OpensWithHelloOfProtocolOne)
{
    com.connectToServer(false);
    const QJsonObject hello = server.accept().readMessage();
    EXPECT_EQ(hello["jsonrpc"], "2.0");
    EXPECT_EQ(hello["method"], "hello");
    EXPECT_EQ(hello["params"], (QJsonObject{{"protocol", 1}}));
    EXPECT_TRUE(hello.contains("id"));
}

TEST_F(ConnectionTest, IsUpOnlyWhenHelloHasBeenAnswered)
{
    com.connectToServer(false);
    ScriptedPeer peer = server.accept();
    const QJsonObject hello = peer.readMessage();
    peer.notify("bumper.changed", R"({"value":true})");
    peer.sync();
    com.processEvents();
    EXPECT_EQ(com.events, Events{});
    EXPECT_FALSE(Bumper().value());

    peer.answer(hello, {{"protocol", 1}, {"robot", "r"}});
    EXPECT_TRUE(com.processUntil([this] { return !com.events.empty(); }));
    EXPECT_EQ(com.events, Events{"connected"});
}

TEST_F(ConnectionTest, IgnoresAnAnswerWithAnotherId)
{
    com.connectToServer(false);
    ScriptedPeer peer = server.accept();
    peer.readMessage();
    peer.sendRaw("{\"jsonrpc\":\"2.0\",\"id\":\"other\",\"result\":{\"protocol\":1}}\n");
    peer.sync();
    com.processEvents();
    EXPECT_EQ(com.events, Events{});
}

TEST_F(ConnectionTest, AnswersUnknownRequestsWithMethodNotFound)
{
    ScriptedPeer peer = connect();
    peer.sendRaw("{\"jsonrpc\":\"2.0\",\"id\":[1,\"x\"],\"method\":\"robot.sing\"}\n");
    const QJsonObject answer = peer.readCommand();
    EXPECT_EQ(answer["id"], (QJsonArray{1, "x"}));
    EXPECT_EQ(answer["error"].toObject()["code"], -32601);
    EXPECT_FALSE(answer.contains("result"));
}

TEST_F(ConnectionTest, TellsTheEndOfAConnectionThatWasUp)
{
    connect().close();
    EXPECT_TRUE(com.processUntil([this] { return com.events.size() == 2; }));
    EXPECT_EQ(com.events, (Events{"connected", "disconnected"}));
}

TEST_F(ConnectionTest, TriesOnceWithoutAutoReconnect)
{
    connect().close();
    EXPECT_FALSE(server.acceptWithin(1300ms));
}

TEST_F(ConnectionTest, ConnectsAgainASecondAfterALoss)
{
    com.setAutoReconnectEnabled(true);
    connect().close();
    const Clock::time_point lost = Clock::now();
    ScriptedPeer second = server.acceptAndGreet();
    EXPECT_GE(Clock::now() - lost, 900ms);
    EXPECT_LE(Clock::now() - lost, 3s);
    EXPECT_TRUE(com.processUntil([this] { return com.events.size() == 3; }));
    EXPECT_EQ(com.events, (Events{"connected", "disconnected", "connected"}));
}

TEST_F(ConnectionTest, ConnectsAgainWhenAutoReconnectIsEnabledAfterALoss)
{
    connect().close();
    ASSERT_TRUE(com.processUntil([this] { return com.events.size() == 2; }));
    com.setAutoReconnectEnabled(true);
    EXPECT_NO_THROW(server.acceptAndGreet());
}

TEST_F(ConnectionTest, ConnectsASecondAfterARefusalWithoutAnyEventBefore)
{
    server.stopListening();
    com.setAutoReconnectEnabled(true);
    com.connectToServer(true);
    com.processEvents();
    EXPECT_EQ(com.events, Events{});

    server.listenAgain();
    ScriptedPeer peer = server.acceptAndGreet();
    EXPECT_TRUE(com.processUntil([this] { return !com.events.empty(); }));
    EXPECT_EQ(com.events, Events{"connected"});
}

TEST_F(ConnectionTest, UsesANewAddressFromTheNextAttemptOn)
{
    com.setAutoReconnectEnabled(true);
    ScriptedPeer first = connect();
    ScriptedServer other;
    com.setAddress(other.address().constData());
    first.sync();
    first.close();
    EXPECT_NO_THROW(other.acceptAndGreet());
}

TEST_F(ConnectionTest, LeavesAServerOfAnotherProtocolWithoutAnEventAndTriesAgain)
{
    for (const QJsonValue& wrong : {QJsonValue(2), QJsonValue("1"), QJsonValue()}) {
        com.setAutoReconnectEnabled(wrong.isNull());
        com.connectToServer(false);
        ScriptedPeer peer = server.accept();
        peer.answer(peer.readMessage(), {{"protocol", wrong}, {"robot", "r"}});
        EXPECT_TRUE(peer.isEndedWithin(3s));
    }
    ScriptedPeer right = server.acceptAndGreet();
    right.sync();
    com.processEvents();
    EXPECT_EQ(com.events, Events{"connected"});
}

TEST_F(ConnectionTest, LeavesAServerThatAnswersHelloWithAnError)
{
    com.connectToServer(false);
    ScriptedPeer peer = server.accept();
    peer.readMessage();
    peer.sendRaw("{\"jsonrpc\":\"2.0\",\"id\":1,\"error\":{\"code\":-32602,\"message\":\"no\"}}\n");
    EXPECT_TRUE(peer.isEndedWithin(3s));
    com.processEvents();
    EXPECT_EQ(com.events, Events{});
}

TEST_F(ConnectionTest, BlockingCallReturnsWhenTheConnectionIsUp)
{
    std::thread robot([this] {
        ScriptedPeer peer = server.acceptAndGreet();
        peer.isEndedWithin(20s);
    });
    com.connectToServer(true);
    com.processEvents();
    EXPECT_EQ(com.events, Events{"connected"});
    shutdown();
    robot.join();
}

TEST_F(ConnectionTest, BlockingCallReturnsWhenTheAttemptIsRefusedOrHasNoPort)
{
    server.stopListening();
    com.connectToServer(true);
    com.setAddress("localhost:nonsense");
    com.connectToServer(true);
    com.setAddress("no.such.host.invalid");
    com.connectToServer(true);
    com.processEvents();
    EXPECT_EQ(com.events, Events{});
}

TEST_F(ConnectionTest, FindsAServerByTheNameOfItsHost)
{
    com.setAddress("localhost:" + QByteArray::number(server.port()));
    EXPECT_NO_THROW(connect());
}

TEST_F(ConnectionTest, ANewCallOfConnectToServerStartsANewConnection)
{
    ScriptedPeer first = connect();
    ScriptedPeer second = connect();
    EXPECT_TRUE(first.isEndedWithin(3s));
    com.processEvents();
    EXPECT_EQ(com.events, (Events{"connected", "disconnected", "connected"}));
}

} // namespace

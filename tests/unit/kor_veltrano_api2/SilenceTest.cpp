// The protocol's limits of five seconds, waited out.
#include "RecordingCom.h"

using namespace std::chrono_literals;

namespace {

using Clock = std::chrono::steady_clock;
using Events = std::vector<std::string>;

class SilenceTest : public ConnectedTest
{
};

TEST_F(SilenceTest, ServerThatNeverAnswersHelloIsLeftAfterFiveSecondsAndTriedAgain)
{
    com.setAutoReconnectEnabled(true);
    com.connectToServer(false);
    ScriptedPeer peer = server.accept();
    const Clock::time_point start = Clock::now();
    peer.readMessage();
    // What is sent instead of the answer does not prolong the wait.
    while (!peer.isEndedWithin(500ms) && Clock::now() - start < 10s) {
        peer.notify("bumper.changed", R"({"value":false})");
    }
    EXPECT_GE(Clock::now() - start, 4500ms);
    EXPECT_LE(Clock::now() - start, 7s);
    EXPECT_NO_THROW(server.acceptAndGreet());
    EXPECT_TRUE(com.processUntil([this] { return com.events.size() == 2; }));
    EXPECT_EQ(com.events, (Events{"connected", "disconnected"}));
}

TEST_F(SilenceTest, PingsComeTwoSecondsApartAndFiveSecondsWithoutAByteEndTheConnection)
{
    ScriptedPeer peer = connect();
    const Clock::time_point start = Clock::now();
    const QJsonObject first = peer.readMessage();
    const Clock::time_point firstPing = Clock::now();
    // Any byte counts, also one of an unfinished line.
    peer.sendRaw("{");
    const QJsonObject second = peer.readMessage();
    const Clock::time_point secondPing = Clock::now();
    EXPECT_TRUE(peer.isEndedWithin(10s));
    const Clock::time_point end = Clock::now();

    EXPECT_EQ(first["method"], "ping");
    EXPECT_FALSE(first.contains("params"));
    EXPECT_EQ(second["method"], "ping");
    EXPECT_NE(first["id"], second["id"]);
    EXPECT_GE(firstPing - start, 1500ms);
    EXPECT_GE(secondPing - firstPing, 1500ms);
    EXPECT_LE(secondPing - start, 6s);
    EXPECT_GE(end - firstPing, 4500ms);
    EXPECT_LE(end - firstPing, 7s);
    com.processEvents();
    EXPECT_EQ(com.events, (Events{"connected", "disconnected"}));
}

} // namespace

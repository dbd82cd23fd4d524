// Servers that mean no good, or are something else than a robot.
#include "RecordingCom.h"

#include "kor/veltrano/api2/Bumper.h"
#include "kor/veltrano/api2/OmniDrive.h"

#include <QFile>

using namespace kor::veltrano::api2;
using namespace std::chrono_literals;

namespace {

constexpr int limit = kor::veltrano::rpc::LineReader::maxLineBytes;

// The most memory that the process has had so far, in bytes.
long peakMemory()
{
    QFile status(QStringLiteral("/proc/self/status"));
    EXPECT_TRUE(status.open(QFile::ReadOnly));
    for (const QByteArray& line : status.readAll().split('\n')) {
        if (line.startsWith("VmHWM:")) {
            return line.simplified().split(' ').at(1).toLong() * 1024;
        }
    }
    return 0;
}

class HostileServerTest : public ConnectedTest
{
protected:
    // The connection ends although the server goes on sending, so not for its silence.
    static bool isEndedByItself(ScriptedPeer* peer)
    {
        for (int i = 0; i < 100; ++i) {
            if (peer->isEndedWithin(100ms)) {
                return true;
            }
            peer->sendRaw("\n");
        }
        return false;
    }

    // The connection ends, and another is made that works.
    void expectEndAndRecovery(ScriptedPeer* peer)
    {
        EXPECT_TRUE(isEndedByItself(peer));
        EXPECT_EQ(connect().sync(), QStringList());
    }
};

TEST_F(HostileServerTest, ALineThatIsNoJsonObjectEndsTheConnection)
{
    for (const char* line : {"[1]\n", "SSH-2.0-Server\r\n", "{\"jsonrpc\":\n"}) {
        ScriptedPeer peer = connect();
        peer.sendRaw(line);
        expectEndAndRecovery(&peer);
    }
}

TEST_F(HostileServerTest, GarbageInPlaceOfTheOpeningAnswerEndsTheAttempt)
{
    com.setAutoReconnectEnabled(true);
    com.connectToServer(false);
    ScriptedPeer peer = server.accept();
    peer.sendRaw("HTTP/1.1 400 Bad Request\r\n\r\n");
    EXPECT_TRUE(peer.isEndedWithin(3s));
    EXPECT_NO_THROW(server.acceptAndGreet());
}

TEST_F(HostileServerTest, HalfALineAtTheEndIsForgottenWithItsConnection)
{
    ScriptedPeer peer = connect();
    peer.sendRaw(R"({"jsonrpc":"2.0","method":"bumper.chan)");
    peer.close();
    EXPECT_EQ(connect().sync(), QStringList());
}

TEST_F(HostileServerTest, AMessageOfExactlyTheLimitIsTaken)
{
    ScriptedPeer peer = connect();
    QByteArray line = R"({"jsonrpc":"2.0","method":"bumper.changed","params":{"value":true}})";
    line += QByteArray(limit - line.size(), ' ');
    peer.sendRaw(line + '\n');
    peer.sync();
    EXPECT_TRUE(Bumper().value());
}

TEST_F(HostileServerTest, AMessageOfOneByteMoreEndsTheConnection)
{
    ScriptedPeer peer = connect();
    QByteArray line = R"({"jsonrpc":"2.0","method":"bumper.changed","params":{"value":true}})";
    line += QByteArray(limit + 1 - line.size(), ' ');
    peer.sendRaw(line + '\n');
    expectEndAndRecovery(&peer);
}

TEST_F(HostileServerTest, AnEndlessLineCostsNoMoreMemoryThanTheLimitAllows)
{
    ScriptedPeer peer = connect();
    const long before = peakMemory();
    const QByteArray piece(1024 * 1024, '{');
    for (int i = 0; i < 100; ++i) {
        peer.sendRaw(piece);
    }
    expectEndAndRecovery(&peer);
    // Growing the buffer may take twice the limit for a moment.
    EXPECT_LT(peakMemory() - before, 5L * limit);
}

TEST_F(HostileServerTest, AServerThatNeverReadsIsLeft)
{
    ScriptedPeer peer = connect();
    com.processEvents();
    OmniDrive drive;
    EXPECT_TRUE(com.processUntil([this, &peer, &drive] {
        // Its silence is not what ends it.
        peer.sendRaw("\n");
        for (int i = 0; i < 1'000; ++i) {
            drive.setVelocity(1, 2, 3);
        }
        return com.events.back() == "disconnected";
    }));
    EXPECT_EQ(connect().sync(), QStringList());
}

TEST_F(HostileServerTest, AServerThatAsksEndlesslyAndNeverReadsIsLeft)
{
    ScriptedPeer peer = connect();
    com.processEvents();
    QByteArray requests;
    for (int i = 0; i < 1'000; ++i) {
        requests += "{\"id\":1,\"method\":\"x\"}\n";
    }
    EXPECT_TRUE(com.processUntil([this, &peer, &requests] {
        peer.sendRaw(requests);
        return com.events.back() == "disconnected";
    }));
}

TEST_F(HostileServerTest, GettersAnswerWhileTheServerFloods)
{
    ScriptedPeer peer = connect();
    std::atomic<bool> isOver = false;
    std::thread flood([&peer, &isOver] {
        QByteArray lines;
        for (int i = 0; i < 2'000; ++i) {
            lines += "{\"method\":\"bumper.changed\",\"params\":{\"value\":true}}\n";
        }
        while (!isOver) {
            peer.sendRaw(lines);
        }
    });
    const Bumper bumper;
    auto slowest = std::chrono::steady_clock::duration::zero();
    EXPECT_TRUE(com.processUntil([&bumper] { return bumper.value(); }));
    for (int i = 0; i < 2'000; ++i) {
        const auto start = std::chrono::steady_clock::now();
        EXPECT_TRUE(bumper.value());
        slowest = std::max(slowest, std::chrono::steady_clock::now() - start);
    }
    isOver = true;
    flood.join();
    EXPECT_LT(slowest, 1s);
}

} // namespace

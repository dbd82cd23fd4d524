#include "RecordingCom.h"

#include "kor/veltrano/api2/DigitalOutputArray.h"
#include "kor/veltrano/api2/OmniDrive.h"
#include "kor/veltrano/api2/RelayArray.h"

#include <QJsonArray>

#include <array>
#include <cmath>
#include <future>
#include <limits>

using namespace kor::veltrano::api2;
using namespace std::chrono_literals;

namespace {

class CommandTest : public ConnectedTest
{
protected:
    static QJsonObject paramsOf(const QJsonObject& command) { return command["params"].toObject(); }

    OmniDrive drive;
};

TEST_F(CommandTest, VelocityTravelsAsTheSameFloats)
{
    ScriptedPeer peer = connect();
    using Limits = std::numeric_limits<float>;
    constexpr float vy = -1.0F / 3;
    for (const float vx : {0.1F, 0.0F, -2.0001F, 1e-5F, Limits::max(), Limits::lowest(),
                           Limits::denorm_min(), std::nextafter(1.0F, 2.0F)}) {
        drive.setVelocity(vx, vy, -vx);
        const QJsonObject command = peer.readCommand();
        EXPECT_EQ(command["jsonrpc"], "2.0");
        EXPECT_EQ(command["method"], "omniDrive.setVelocity");
        EXPECT_FALSE(command.contains("id"));
        const QJsonObject params = paramsOf(command);
        EXPECT_EQ(params.keys(), (QStringList{"omega", "vx", "vy"}));
        EXPECT_EQ(static_cast<float>(params["vx"].toDouble()), vx);
        EXPECT_EQ(static_cast<float>(params["vy"].toDouble()), vy);
        EXPECT_EQ(static_cast<float>(params["omega"].toDouble()), -vx);
    }
}

TEST_F(CommandTest, OutputsAndRelaysTravelAsZerosAndOnes)
{
    ScriptedPeer peer = connect();
    const std::array<int, 8> outputs{1, 0, -1, 0, 2, 0, 1, 0};
    DigitalOutputArray().setValues(outputs.data(), 8);
    RelayArray().setValues(outputs.data(), 2);
    const QJsonObject first = peer.readCommand();
    EXPECT_EQ(first["method"], "digitalOutputArray.setValues");
    EXPECT_EQ(paramsOf(first), (QJsonObject{{"values", QJsonArray{1, 0, 1, 0, 1, 0, 1, 0}}}));
    const QJsonObject second = peer.readCommand();
    EXPECT_EQ(second["method"], "relayArray.setValues");
    EXPECT_EQ(paramsOf(second), (QJsonObject{{"values", QJsonArray{1, 0}}}));
    RelayArray().setValues(outputs.data(), 0);
    EXPECT_EQ(paramsOf(peer.readCommand()), (QJsonObject{{"values", QJsonArray()}}));
}

TEST_F(CommandTest, VelocitiesThatAreNoNumbersAreDropped)
{
    ScriptedPeer peer = connect();
    constexpr float infinity = std::numeric_limits<float>::infinity();
    drive.setVelocity(std::nanf(""), 0, 0);
    drive.setVelocity(0, infinity, 0);
    drive.setVelocity(0, 0, -infinity);
    EXPECT_EQ(peer.sync(), QStringList());
}

TEST_F(CommandTest, OrderOfOneThreadIsKept)
{
    ScriptedPeer peer = connect();
    constexpr int count = 2'000;
    for (int i = 0; i < count; ++i) {
        drive.setVelocity(static_cast<float>(i), 0, 0);
    }
    for (int i = 0; i < count; ++i) {
        ASSERT_EQ(paramsOf(peer.readCommand())["vx"], i);
    }
}

TEST_F(CommandTest, EveryCommandOfSeveralThreadsArrives)
{
    ScriptedPeer peer = connect();
    constexpr int count = 1'000;
    const auto commandAll = [](float vy) {
        for (int i = 0; i < count; ++i) {
            OmniDrive().setVelocity(static_cast<float>(i), vy, 0);
        }
    };
    // Futures, as they wait for their threads also where a read throws.
    std::array<std::future<void>, 3> threads;
    for (std::size_t i = 0; i < threads.size(); ++i) {
        threads[i] = std::async(std::launch::async, commandAll, static_cast<float>(i));
    }
    std::array<int, threads.size()> next{};
    for (std::size_t i = 0; i < threads.size() * count; ++i) {
        const QJsonObject params = paramsOf(peer.readCommand());
        EXPECT_EQ(params["vx"], next.at(static_cast<std::size_t>(params["vy"].toInt()))++);
    }
}

TEST_F(CommandTest, CommandsBeforeTheConnectionAreDropped)
{
    drive.setVelocity(1, 0, 0);
    com.connectToServer(false);
    ScriptedPeer peer = server.accept();
    drive.setVelocity(2, 0, 0);
    const QJsonObject hello = peer.readMessage();
    drive.setVelocity(3, 0, 0);
    EXPECT_EQ(peer.sync(), QStringList());
    peer.answer(hello, {{"protocol", 1}, {"robot", "r"}});
    EXPECT_EQ(peer.sync(), QStringList());
    drive.setVelocity(4, 0, 0);
    EXPECT_EQ(paramsOf(peer.readCommand())["vx"], 4);
}

TEST_F(CommandTest, CommandsWhileTheConnectionIsLostAreNotSentOnTheNext)
{
    com.setAutoReconnectEnabled(true);
    connect().close();
    ASSERT_TRUE(com.processUntil([this] { return com.events.size() == 2; }));
    drive.setVelocity(1, 0, 0);
    ScriptedPeer peer = server.accept();
    drive.setVelocity(2, 0, 0);
    peer.greet();
    EXPECT_EQ(peer.sync(), QStringList());
}

TEST_F(CommandTest, NoCommandOfALostConnectionReachesTheNextHoweverTheyInterleave)
{
    com.setAutoReconnectEnabled(true);
    ScriptedPeer first = connect();
    std::atomic<int> wanted = 1;
    std::atomic<int> given = 0;
    std::thread driver([this, &wanted, &given] {
        while (const int generation = wanted) {
            drive.setVelocity(static_cast<float>(generation), 0, 0);
            given = generation;
            std::this_thread::yield();
        }
    });
    first.readCommand();
    first.close();
    ScriptedPeer second = server.accept();
    wanted = 2;
    // Once one such command has been given, none of before can follow it.
    EXPECT_TRUE(com.processUntil([&given] { return given == 2; }));
    second.greet();
    const QJsonObject command = second.readCommand();
    wanted = 0;
    driver.join();
    EXPECT_EQ(paramsOf(command)["vx"], 2);
}

TEST_F(CommandTest, ACommandReachesTheWireAtOnce)
{
    ScriptedPeer peer = connect();
    auto fastest = std::chrono::steady_clock::duration::max();
    for (int i = 0; i < 20; ++i) {
        const auto start = std::chrono::steady_clock::now();
        drive.setVelocity(1, 0, 0);
        peer.readCommand();
        fastest = std::min(fastest, std::chrono::steady_clock::now() - start);
    }
    EXPECT_LT(fastest, 20ms);
}

TEST_F(CommandTest, CommandsGivenJustBeforeShutdownStillGoOut)
{
    ScriptedPeer peer = connect();
    drive.setVelocity(0, 0, 0);
    shutdown();
    EXPECT_EQ(peer.readCommand()["method"], "omniDrive.setVelocity");
}

} // namespace

#include "RecordingCom.h"

#include "kor/veltrano/api2/Bumper.h"
#include "kor/veltrano/api2/OmniDrive.h"

#include <QCoreApplication>

using namespace kor::veltrano::api2;
using namespace std::chrono_literals;

namespace {

using Events = std::vector<std::string>;

class LifecycleTest : public ConnectedTest
{
};

TEST_F(LifecycleTest, ShutdownWithoutAnyConnectionReturns)
{
    shutdown();
    shutdown();
}

TEST_F(LifecycleTest, ShutdownEndsTheConnectionAndMayBeCalledTwice)
{
    ScriptedPeer peer = connect();
    shutdown();
    EXPECT_TRUE(peer.isEndedWithin(3s));
    shutdown();
    com.processEvents();
    EXPECT_EQ(com.events, (Events{"connected", "disconnected"}));
}

TEST_F(LifecycleTest, AfterShutdownNothingIsTriedAgain)
{
    com.setAutoReconnectEnabled(true);
    connect();
    shutdown();
    EXPECT_FALSE(server.acceptWithin(1300ms));
}

TEST_F(LifecycleTest, ConnectToServerStartsAnewAfterShutdown)
{
    connect();
    shutdown();
    ScriptedPeer peer = connect();
    com.processEvents();
    EXPECT_EQ(com.events, (Events{"connected", "disconnected", "connected"}));
    OmniDrive().setVelocity(1, 2, 3);
    EXPECT_EQ(peer.readCommand()["method"], "omniDrive.setVelocity");
}

TEST_F(LifecycleTest, ShutdownEndsABlockingCall)
{
    com.connectToServer(false);
    ScriptedPeer peer = server.accept();
    std::thread caller([this] { com.connectToServer(true); });
    ScriptedPeer second = server.accept();
    shutdown();
    caller.join();
}

TEST_F(LifecycleTest, ShutdownInsideAHandlerReturns)
{
    struct EndingBumper : Bumper {
        void bumperEvent(bool) override { shutdown(); }
    };
    const EndingBumper bumper;
    ScriptedPeer peer = connect();
    peer.notify("bumper.changed", R"({"value":true})");
    peer.sync();
    com.processEvents();
    EXPECT_TRUE(peer.isEndedWithin(3s));
}

TEST_F(LifecycleTest, ManyConnectionsInARowLeaveNothingBehind)
{
    for (int i = 0; i < 50; ++i) {
        connect();
        shutdown();
    }
    com.processEvents();
    EXPECT_LE(com.events.size(), 32U);
    EXPECT_GE(com.events.size(), 30U);
    EXPECT_EQ(com.events.back(), "disconnected");
}

TEST_F(LifecycleTest, TheConnectionOutlivesTheCallersApplication)
{
    int argc = 0;
    auto application = std::make_unique<QCoreApplication>(argc, nullptr);
    ScriptedPeer peer = connect();
    application.reset();
    OmniDrive().setVelocity(1, 0, 0);
    EXPECT_EQ(peer.readCommand()["method"], "omniDrive.setVelocity");
    peer.notify("bumper.changed", R"({"value":true})");
    peer.sync();
    EXPECT_TRUE(Bumper().value());
}

} // namespace

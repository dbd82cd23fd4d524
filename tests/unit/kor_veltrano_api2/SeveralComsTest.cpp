#include "RecordingCom.h"

#include "kor/veltrano/api2/OmniDrive.h"

#include <memory>
#include <set>

using namespace kor::veltrano::api2;
using namespace std::chrono_literals;

namespace {

using Events = std::vector<std::string>;

class SeveralComsTest : public ConnectedTest
{
};

TEST_F(SeveralComsTest, EachHasAHandleOfItsOwnThatStays)
{
    std::set<int> numbers;
    for (int i = 0; i < 10; ++i) {
        const Com other;
        EXPECT_NE(other.id(), ComId::null());
        EXPECT_EQ(other.id(), other.id());
        numbers.insert(other.id().number());
    }
    EXPECT_EQ(numbers.size(), 10U);
}

TEST_F(SeveralComsTest, TheLastThatConnectsOwnsTheConnection)
{
    ScriptedPeer first = connect();
    RecordingCom other;
    other.setAddress(server.address().constData());
    other.connectToServer(false);
    EXPECT_TRUE(first.isEndedWithin(3s));
    ScriptedPeer second = server.acceptAndGreet();
    second.sync();
    com.processEvents();
    EXPECT_EQ(com.events, (Events{"connected", "disconnected"}));
    EXPECT_EQ(other.events, Events{"connected"});
}

TEST_F(SeveralComsTest, DestroyingTheOwnerEndsTheConnectionAfterTheCommandsGivenBefore)
{
    auto owner = std::make_unique<RecordingCom>();
    owner->setAddress(server.address().constData());
    owner->setAutoReconnectEnabled(true);
    owner->connectToServer(false);
    ScriptedPeer peer = server.acceptAndGreet();
    peer.sync();
    OmniDrive drive;
    drive.setVelocity(1, 0, 0);
    owner.reset();
    drive.setVelocity(2, 0, 0);
    EXPECT_EQ(peer.readCommand()["params"].toObject()["vx"], 1);
    EXPECT_THROW(peer.readCommand(), std::runtime_error);
    EXPECT_FALSE(server.acceptWithin(1300ms));
}

TEST_F(SeveralComsTest, DestroyingAnotherLeavesTheConnectionAlone)
{
    std::optional<Com> other(std::in_place);
    ScriptedPeer peer = connect();
    other.reset();
    EXPECT_EQ(peer.sync(), QStringList());
}

} // namespace

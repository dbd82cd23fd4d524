#include "RecordingCom.h"

#include "kor/veltrano/api2/Camera.h"
#include "kor/veltrano/api2/LaserRangeFinder.h"

#include <memory>

using namespace kor::veltrano::api2;

namespace {

class SubscriptionTest : public ConnectedTest
{
};

TEST_F(SubscriptionTest, DetachedObjectsSubscribeToNothing)
{
    const Camera camera(ComId::null());
    const LaserRangeFinder scanner(ComId::null());
    EXPECT_EQ(connect().sync(), QStringList());
}

TEST_F(SubscriptionTest, TheFirstBoundCameraSubscribesAndTheLastDetachedUnsubscribes)
{
    ScriptedPeer peer = connect();
    Camera first(ComId::null());
    auto second = std::make_unique<Camera>(com.id());
    EXPECT_EQ(peer.sync(), QStringList{"camera.subscribe"});
    first.setComId(com.id());
    first.setComId(com.id());
    second.reset();
    EXPECT_EQ(peer.sync(), QStringList());
    first.setComId(ComId::null());
    EXPECT_EQ(peer.sync(), QStringList{"camera.unsubscribe"});
    first.setComId(com.id());
    EXPECT_EQ(peer.sync(), QStringList{"camera.subscribe"});
}

TEST_F(SubscriptionTest, TheLastDestroyedObjectUnsubscribes)
{
    ScriptedPeer peer = connect();
    {
        const Camera camera(com.id());
        const LaserRangeFinder scanner(com.id());
    }
    EXPECT_EQ(peer.sync(),
              (QStringList{"camera.subscribe", "laserRangeFinder.subscribe",
                           "laserRangeFinder.unsubscribe", "camera.unsubscribe"}));
}

TEST_F(SubscriptionTest, SubscribesTheScannerByItself)
{
    ScriptedPeer peer = connect();
    LaserRangeFinder scanner(ComId::null());
    scanner.setComId(com.id());
    EXPECT_EQ(peer.sync(), QStringList{"laserRangeFinder.subscribe"});
    scanner.setComId(ComId::null());
    EXPECT_EQ(peer.sync(), QStringList{"laserRangeFinder.unsubscribe"});
}

TEST_F(SubscriptionTest, ObjectsBoundBeforeTheConnectionSubscribeWhenItIsUp)
{
    const Camera camera(com.id());
    com.connectToServer(false);
    ScriptedPeer peer = server.accept();
    const QJsonObject hello = peer.readMessage();
    EXPECT_EQ(peer.sync(), QStringList());
    peer.answer(hello, {{"protocol", 1}, {"robot", "r"}});
    EXPECT_EQ(peer.sync(), QStringList{"camera.subscribe"});
}

TEST_F(SubscriptionTest, ThoseInForceAreSentAgainAfterAReconnect)
{
    com.setAutoReconnectEnabled(true);
    const Camera camera(com.id());
    const LaserRangeFinder leaving(com.id());
    ScriptedPeer first = connect();
    const LaserRangeFinder scanner(com.id());
    first.close();
    ScriptedPeer second = server.acceptAndGreet();
    EXPECT_EQ(second.sync(), (QStringList{"camera.subscribe", "laserRangeFinder.subscribe"}));
}

TEST_F(SubscriptionTest, WhatWasDetachedWhileTheConnectionWasLostIsNotSentAgain)
{
    com.setAutoReconnectEnabled(true);
    Camera camera(com.id());
    LaserRangeFinder scanner(ComId::null());
    connect().close();
    ASSERT_TRUE(com.processUntil([this] { return com.events.size() == 2; }));
    camera.setComId(ComId::null());
    scanner.setComId(com.id());
    ScriptedPeer second = server.acceptAndGreet();
    EXPECT_EQ(second.sync(), QStringList{"laserRangeFinder.subscribe"});
}

TEST_F(SubscriptionTest, ObjectsTellTheConnectionTheyAreBoundTo)
{
    Camera camera(ComId::null());
    LaserRangeFinder scanner(com.id());
    EXPECT_EQ(camera.comId(), ComId::null());
    EXPECT_EQ(scanner.comId(), com.id());
    camera.setComId(com.id());
    scanner.setComId(ComId::null());
    EXPECT_EQ(camera.comId(), com.id());
    EXPECT_EQ(scanner.comId(), ComId::null());
}

TEST_F(SubscriptionTest, AnObjectBoundToAnotherConnectionSubscribesToNothingOfThisOne)
{
    const Com other;
    ScriptedPeer peer = connect();
    const Camera camera(other.id());
    EXPECT_EQ(peer.sync(), QStringList());
}

} // namespace

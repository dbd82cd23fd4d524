// What clients get of the camera and of the laser scanner, which only subscribers are told.
#include "support/Jpeg.h"
#include "support/RawClient.h"
#include "support/TestRobot.h"
#include "support/worlds.h"

#include <QJsonArray>

#include <algorithm>
#include <ctime>
#include <gtest/gtest.h>

using namespace kor::veltrano::sim;

namespace {

const QString imageReceived = QStringLiteral("camera.imageReceived");
const QString scan = QStringLiteral("laserRangeFinder.scan");
const QByteArray subscribeCamera = R"({"jsonrpc":"2.0","method":"camera.subscribe","params":{}})";
const QByteArray subscribeScanner =
    R"({"jsonrpc":"2.0","method":"laserRangeFinder.subscribe","params":{}})";

std::ptrdiff_t countOf(const std::vector<QJsonObject>& messages, const QString& method)
{
    return std::count_if(messages.begin(), messages.end(), [&method](const QJsonObject& message) {
        return message["method"].toString() == method;
    });
}

class SubscriptionTest : public testing::Test
{
protected:
    SubscriptionTest()
    {
        client.open();
        other.open();
    }

    void send(const QByteArray& command)
    {
        client.sendLine(command);
        client.untilPing();
    }

    // The time of the processor that two simulated seconds take, in s.
    double costOfTwoSeconds()
    {
        const std::clock_t before = std::clock();
        robot.step(200);
        return static_cast<double>(std::clock() - before) / CLOCKS_PER_SEC;
    }

    TestRobot robot{squareRoom(2)};
    RawClient client{robot.port()};
    RawClient other{robot.port()};
};

} // namespace

TEST_F(SubscriptionTest, GivesImagesAndScansAtTheirRatesToSubscribersOnly)
{
    send(subscribeCamera);
    robot.step(200);
    std::vector<QJsonObject> received = client.untilPing();
    EXPECT_EQ(countOf(received, imageReceived), 30);
    EXPECT_EQ(countOf(received, scan), 0);
    EXPECT_EQ(countOf(other.untilPing(), imageReceived), 0);
    send(subscribeScanner);
    send(R"({"jsonrpc":"2.0","method":"camera.unsubscribe","params":{}})");
    robot.step(200);
    received = client.untilPing();
    EXPECT_EQ(countOf(received, imageReceived), 0);
    EXPECT_EQ(countOf(received, scan), 20);
    EXPECT_EQ(countOf(other.untilPing(), scan), 0);
}

TEST_F(SubscriptionTest, GivesAllSubscribersTheSameImage)
{
    send(subscribeCamera);
    other.sendLine(subscribeCamera);
    other.untilPing();
    robot.step(7);
    const QJsonObject image = client.nextOf(imageReceived)["params"].toObject();
    EXPECT_EQ(other.nextOf(imageReceived)["params"], QJsonValue(image));
    const std::optional<Picture> picture =
        decodeJpeg(QByteArray::fromBase64(image["data"].toString().toUtf8()));
    ASSERT_TRUE(picture);
    EXPECT_EQ(picture->width, image["width"].toInt());
    EXPECT_EQ(picture->height, image["height"].toInt());
}

TEST_F(SubscriptionTest, NothingIsReckonedForNobody)
{
    costOfTwoSeconds();
    const double idle = costOfTwoSeconds();
    send(subscribeScanner);
    const double scanning = costOfTwoSeconds();
    send(subscribeCamera);
    const double filming = costOfTwoSeconds();
    EXPECT_GT(filming, 5 * idle);
    EXPECT_GT(scanning, 2 * idle);
    EXPECT_GT(filming, scanning);
}

TEST_F(SubscriptionTest, AScanThatIsSetIsToldAtOnceAndWithEachLaterOne)
{
    send(subscribeScanner);
    robot.set(QStringLiteral("laserRangeFinder"),
              QJsonObject{{QStringLiteral("seq"), 77},
                          {QStringLiteral("ranges"), QJsonArray{0.5, 5.75}},
                          {QStringLiteral("intensities"), QJsonArray{1, 2, 3}}});
    const QJsonObject told = client.nextOf(scan)["params"].toObject();
    EXPECT_EQ(told["seq"].toInt(), 77);
    EXPECT_EQ(told["ranges"].toArray(), (QJsonArray{0.5, 5.75}));
    EXPECT_EQ(told["intensities"].toArray(), (QJsonArray{1, 2, 3}));
    robot.step(10);
    EXPECT_EQ(client.nextOf(scan)["params"], QJsonValue(told));
    EXPECT_EQ(robot.state(QStringLiteral("laserRangeFinder")), QJsonValue(told));
    robot.call(QStringLiteral("state.release"));
    EXPECT_EQ(client.nextOf(scan)["params"]["ranges"].toArray().size(), 541);
}

class HeldImageTest : public SubscriptionTest, public testing::WithParamInterface<int>
{
};

TEST_P(HeldImageTest, IsToldAtOnceAndWithEachLaterOne)
{
    send(subscribeCamera);
    QByteArray bytes(GetParam(), '\xd8');
    if (!bytes.isEmpty()) {
        bytes[bytes.size() - 1] = 'z';
    }
    const QString base64 = QString::fromLatin1(bytes.toBase64());
    robot.set(QStringLiteral("camera"), QJsonObject{{QStringLiteral("base64"), base64}});
    EXPECT_TRUE(client.nextOf(imageReceived)["params"]["data"] == QJsonValue(base64));
    robot.step(7);
    EXPECT_TRUE(client.nextOf(imageReceived)["params"]["data"] == QJsonValue(base64));
    EXPECT_TRUE(robot.state(QStringLiteral("camera"))["base64"] == QJsonValue(base64));
    robot.call(QStringLiteral("state.release"));
    EXPECT_FALSE(client.nextOf(imageReceived)["params"]["data"] == QJsonValue(base64));
}

// The largest image that fits the daemon's buffer, and what is just larger.
INSTANTIATE_TEST_SUITE_P(Subscription, HeldImageTest, testing::Values(0, 1, 0xFFFFF, 0x100000));

#include "RecordingCom.h"

#include "kor/veltrano/api2/Camera.h"

#include <vector>

using namespace kor::veltrano::api2;

namespace {

struct LoggingCamera : Camera {
    using Camera::Camera;
    void imageReceivedEvent(const unsigned char* data, unsigned int dataSize, unsigned int width,
                            unsigned int height, unsigned int step) override
    {
        events.push_back(std::string(reinterpret_cast<const char*>(data), dataSize) + " "
                         + std::to_string(width) + " " + std::to_string(height) + " "
                         + std::to_string(step));
    }

    std::vector<std::string> events;
};

// What getImage() gave.
struct Got {
    bool isCopied = false;
    unsigned int first = 7;
    unsigned int second = 7;
    unsigned int third = 7;
    std::string bytes;
};

class CameraTest : public ConnectedTest
{
protected:
    void SetUp() override
    {
        peer.emplace(connect());
        camera.setJPGDecodingEnabled(false);
        camera.setComId(com.id());
    }

    void sendImage(const char* format, const QByteArray& bytes)
    {
        peer->notify("camera.imageReceived",
                     QJsonObject{{"format", format},
                                 {"width", 640},
                                 {"height", 480},
                                 {"step", 1920},
                                 {"data", QString::fromLatin1(bytes.toBase64())}});
        peer->sync();
    }

    static Got get(Camera* from, unsigned int bufferSize = 100)
    {
        std::vector<unsigned char> buffer(bufferSize + 1, '.');
        unsigned char* data = buffer.data();
        Got got;
        got.isCopied = from->getImage(&data, bufferSize, &got.first, &got.second, &got.third);
        EXPECT_EQ(data, buffer.data());
        EXPECT_EQ(buffer.back(), '.');
        got.bytes.assign(buffer.begin(), buffer.end());
        got.bytes.erase(got.bytes.find_last_not_of('.') + 1);
        return got;
    }

    static void expectNothing(const Got& got)
    {
        EXPECT_FALSE(got.isCopied);
        EXPECT_EQ(got.first, 0U);
        EXPECT_EQ(got.second, 0U);
        EXPECT_EQ(got.third, 0U);
        EXPECT_EQ(got.bytes, "");
    }

    std::optional<ScriptedPeer> peer;
    LoggingCamera camera{ComId::null()};
};

TEST_F(CameraTest, AJpegIsHandedOutAsTheBytesThatArrived)
{
    sendImage("jpeg", "\xff\xd8 bytes");
    const Got got = get(&camera);
    EXPECT_TRUE(got.isCopied);
    EXPECT_EQ(got.first, 0U);
    EXPECT_EQ(got.second, 0U);
    EXPECT_EQ(got.third, 8U);
    EXPECT_EQ(got.bytes, "\xff\xd8 bytes");
}

TEST_F(CameraTest, AnImageIsNewFromItsArrivalUntilItIsFetched)
{
    unsigned int sequence = 7;
    EXPECT_FALSE(camera.isNewImageAvailable(&sequence));
    sendImage("jpeg", "one");
    EXPECT_TRUE(camera.isNewImageAvailable(&sequence));
    EXPECT_EQ(sequence, 1U);
    EXPECT_TRUE(camera.isNewImageAvailable(nullptr));
    sendImage("jpeg", "two");
    get(&camera);
    EXPECT_FALSE(camera.isNewImageAvailable(&sequence));
    EXPECT_EQ(sequence, 2U);
    expectNothing(get(&camera));
}

TEST_F(CameraTest, TheNewestImageIsFetched)
{
    sendImage("jpeg", "one");
    sendImage("jpeg", "two");
    EXPECT_EQ(get(&camera).bytes, "two");
}

TEST_F(CameraTest, AJpegMayFillTheBufferExactlyButNotExceedIt)
{
    sendImage("jpeg", "12345678");
    EXPECT_EQ(get(&camera, 8).third, 8U);
    sendImage("jpeg", "123456789");
    expectNothing(get(&camera, 8));
    EXPECT_FALSE(camera.isNewImageAvailable(nullptr));
}

TEST_F(CameraTest, AnEmptyJpegGivesNothingButWasAnImage)
{
    sendImage("jpeg", "");
    EXPECT_TRUE(camera.isNewImageAvailable(nullptr));
    expectNothing(get(&camera));
    EXPECT_FALSE(camera.isNewImageAvailable(nullptr));
}

TEST_F(CameraTest, ARawImageGivesItsSizeInPixels)
{
    sendImage("raw", "pixels");
    const Got got = get(&camera);
    EXPECT_TRUE(got.isCopied);
    EXPECT_EQ(got.first, 640U);
    EXPECT_EQ(got.second, 480U);
    EXPECT_EQ(got.third, 0U);
    EXPECT_EQ(got.bytes, "pixels");
}

TEST_F(CameraTest, ARawImageThatIsTooLargeGivesItsSizeInPixelsToo)
{
    sendImage("raw", "pixels");
    const Got got = get(&camera, 5);
    EXPECT_FALSE(got.isCopied);
    EXPECT_EQ(got.first, 640U);
    EXPECT_EQ(got.second, 480U);
    EXPECT_EQ(got.third, 0U);
    EXPECT_EQ(got.bytes, "");
}

TEST_F(CameraTest, AJpegIsNotHandedOutWhileDecodingIsOn)
{
    camera.setJPGDecodingEnabled(true);
    sendImage("jpeg", "one");
    expectNothing(get(&camera));
}

TEST_F(CameraTest, NullPointersAreTakenForNoBufferAndNoInterest)
{
    sendImage("jpeg", "one");
    EXPECT_FALSE(camera.getImage(nullptr, 100, nullptr, nullptr, nullptr));
    sendImage("jpeg", "one");
    unsigned char* data = nullptr;
    EXPECT_FALSE(camera.getImage(&data, 100, nullptr, nullptr, nullptr));
}

TEST_F(CameraTest, DetachingDiscardsAWaitingImageAndItsEvent)
{
    sendImage("jpeg", "one");
    camera.setComId(ComId::null());
    EXPECT_FALSE(camera.isNewImageAvailable(nullptr));
    camera.setComId(com.id());
    EXPECT_FALSE(camera.isNewImageAvailable(nullptr));
    expectNothing(get(&camera));
    com.processEvents();
    EXPECT_TRUE(camera.events.empty());
}

TEST_F(CameraTest, BindingAgainToTheSameConnectionKeepsTheImage)
{
    sendImage("jpeg", "one");
    camera.setComId(com.id());
    EXPECT_EQ(get(&camera).bytes, "one");
}

TEST_F(CameraTest, AnImageThatArrivesAfterDetachingIsNotKept)
{
    camera.setComId(ComId::null());
    sendImage("jpeg", "late");
    camera.setComId(com.id());
    EXPECT_FALSE(camera.isNewImageAvailable(nullptr));
    com.processEvents();
    EXPECT_TRUE(camera.events.empty());
}

TEST_F(CameraTest, EachObjectHasItsOwnNewImage)
{
    Camera second(com.id());
    second.setJPGDecodingEnabled(false);
    sendImage("jpeg", "one");
    EXPECT_EQ(get(&camera).bytes, "one");
    EXPECT_FALSE(camera.isNewImageAvailable(nullptr));
    EXPECT_TRUE(second.isNewImageAvailable(nullptr));
    EXPECT_EQ(get(&second).bytes, "one");
    const Camera third(com.id());
    EXPECT_FALSE(third.isNewImageAvailable(nullptr));
}

TEST_F(CameraTest, TheNewestImageIsToldOnceByEvent)
{
    sendImage("jpeg", "one");
    sendImage("raw", "two");
    get(&camera);
    com.processEvents();
    com.processEvents();
    EXPECT_EQ(camera.events, std::vector<std::string>{"two 640 480 1920"});
}

TEST_F(CameraTest, AnImageWaitsThroughTheLossOfTheConnection)
{
    sendImage("jpeg", "one");
    peer->close();
    ASSERT_TRUE(com.processUntil([this] { return com.events.size() == 2; }));
    EXPECT_EQ(get(&camera).bytes, "one");
}

} // namespace

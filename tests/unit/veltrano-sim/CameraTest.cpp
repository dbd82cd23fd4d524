#include "Camera.h"

#include "Robot.h"
#include "support/Jpeg.h"
#include "support/worlds.h"

#include <gtest/gtest.h>

using namespace kor::veltrano::sim;

namespace {

class CameraTest : public testing::Test
{
protected:
    static World colouredRoom()
    {
        World world = squareRoom(2);
        EXPECT_TRUE(world.addMark({{{2, -0.5}, {2, 0.5}}, 0.3, 0.9, {210, 47, 39}}));
        return world;
    }

    // The params of the only event.
    QJsonObject image() const
    {
        const std::vector<Event> events = camera.state();
        EXPECT_EQ(events.size(), 1U);
        EXPECT_EQ(events.at(0).method.toStdString(), "camera.imageReceived");
        return events.at(0).params;
    }

    QByteArray file() const { return QByteArray::fromBase64(image()["data"].toString().toUtf8()); }

    void standAt(double x, double y, double phi)
    {
        robot
            .prepare(QStringLiteral("pose"),
                     QJsonObject{{QStringLiteral("x"), x},
                                 {QStringLiteral("y"), y},
                                 {QStringLiteral("phi"), phi}})
            .apply();
    }

    const QString key = QStringLiteral("camera");
    const World world = colouredRoom();
    Robot robot{world};
    Camera camera{world, robot};
};

} // namespace

TEST_F(CameraTest, ImagesAreJpegFilesOfTheSizeThatTheyTell)
{
    const QJsonObject params = image();
    EXPECT_EQ(params.keys().join(QLatin1Char(' ')).toStdString(), "data format height step width");
    EXPECT_EQ(params["format"].toString().toStdString(), "jpeg");
    EXPECT_EQ(params["width"].toInt(), 640);
    EXPECT_EQ(params["height"].toInt(), 480);
    EXPECT_EQ(params["step"].toInt(), 640 * 3);
    const std::optional<Picture> picture = decodeJpeg(file());
    ASSERT_TRUE(picture);
    EXPECT_EQ(picture->width, 640);
    EXPECT_EQ(picture->height, 480);
    EXPECT_TRUE(isAbout(picture->row(180)[320], {210, 47, 39}, 40)) << "the mark ahead";
    EXPECT_FALSE(isAbout(picture->row(180)[120], {210, 47, 39}, 40)) << "the wall beside it";
}

TEST_F(CameraTest, AnImageIsLargeEnoughToSeeAndSmallEnoughToSend)
{
    EXPECT_GT(file().size(), 8000);
    EXPECT_LT(file().size(), 60000);
}

TEST_F(CameraTest, ImagesChangeWithThePoseAndWithNothingElse)
{
    const QByteArray before = file();
    camera.step(0.1);
    EXPECT_EQ(file(), before);
    standAt(0.02, 0, 0);
    EXPECT_NE(file(), before);
    standAt(0, 0, 0.02);
    EXPECT_NE(file(), before);
    standAt(0, 0, 0);
    EXPECT_EQ(file(), before);
}

TEST_F(CameraTest, ThereAreFifteenImagesASecond)
{
    int told = 0;
    for (int step = 0; step < 1000; ++step) {
        camera.step(0.01);
        told += camera.hasNews() ? 1 : 0;
        camera.dropNews();
    }
    EXPECT_EQ(told, 150);
}

TEST_F(CameraTest, AnImageIsHeldAsSetUntilItIsReleased)
{
    const QByteArray before = file();
    camera.prepare(key, QJsonObject{{QStringLiteral("base64"), QStringLiteral("/9j/")}}).apply();
    EXPECT_TRUE(camera.isHeld());
    ASSERT_TRUE(camera.hasNews());
    EXPECT_EQ(image()["data"].toString().toStdString(), "/9j/");
    EXPECT_EQ(image()["width"].toInt(), 640) << "as it was";
    camera
        .prepare(key,
                 QJsonObject{{QStringLiteral("format"), QStringLiteral("raw")},
                             {QStringLiteral("width"), 1},
                             {QStringLiteral("height"), 2},
                             {QStringLiteral("step"), 3}})
        .apply();
    const QJsonObject expected{{QStringLiteral("data"), QStringLiteral("/9j/")},
                               {QStringLiteral("format"), QStringLiteral("raw")},
                               {QStringLiteral("width"), 1},
                               {QStringLiteral("height"), 2},
                               {QStringLiteral("step"), 3}};
    EXPECT_EQ(image(), expected);
    camera.release();
    EXPECT_EQ(file(), before);
}

TEST_F(CameraTest, ShowsTheImageItselfOnlyWhileOneIsHeld)
{
    const auto shown = [this] { return camera.show().value(key).toObject(); };
    EXPECT_FALSE(shown().contains(QStringLiteral("base64")));
    EXPECT_EQ(shown()["height"].toInt(), 480);
    camera.prepare(key, QJsonObject{{QStringLiteral("base64"), QString()}}).apply();
    EXPECT_EQ(shown()["base64"], QJsonValue(QString()));
}

TEST_F(CameraTest, RefusesWhatIsNoImage)
{
    const auto reason = [this](const QJsonValue& value) {
        return camera.prepare(key, value).reason().toStdString();
    };
    EXPECT_EQ(reason(1), "camera must be an object");
    EXPECT_EQ(reason(QJsonObject{{QStringLiteral("base64"), QStringLiteral("?")}}),
              "camera.base64 must be Base64");
    EXPECT_EQ(reason(QJsonObject{{QStringLiteral("base64"), 1}}), "camera.base64 must be a text");
    EXPECT_EQ(reason(QJsonObject{{QStringLiteral("width"), -1}}),
              "camera.width must be a whole number from 0 to 4294967295");
    EXPECT_EQ(reason(QJsonObject{{QStringLiteral("data"), QString()}}),
              "camera has no member data; it has base64, format, height, step, width");
}

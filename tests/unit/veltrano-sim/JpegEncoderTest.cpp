#include "JpegEncoder.h"

#include "support/Jpeg.h"

#include <gtest/gtest.h>

using namespace kor::veltrano::sim;

namespace {

Picture halves(int width, int height)
{
    Picture picture(width, height);
    for (int row = 0; row < height; ++row) {
        for (int column = 0; column < width; ++column) {
            picture.row(row)[column] = column < width / 2 ? Color{200, 30, 40} : Color{20, 60, 220};
        }
    }
    return picture;
}

} // namespace

TEST(JpegEncoderTest, WritesWhatADecoderReadsBack)
{
    JpegEncoder encoder;
    const std::optional<Picture> decoded = decodeJpeg(encoder.encode(halves(64, 40), 85));
    ASSERT_TRUE(decoded);
    EXPECT_EQ(decoded->width, 64);
    EXPECT_EQ(decoded->height, 40);
    EXPECT_TRUE(isAbout(decoded->row(20)[8], {200, 30, 40}));
    EXPECT_TRUE(isAbout(decoded->row(20)[56], {20, 60, 220}));
}

TEST(JpegEncoderTest, AHigherQualityGivesALargerFile)
{
    JpegEncoder encoder;
    EXPECT_GT(encoder.encode(halves(640, 480), 95).size(),
              encoder.encode(halves(640, 480), 30).size());
}

TEST(JpegEncoderTest, APictureThatTheFormatCannotHoldGivesNothingAndHarmsNoOther)
{
    JpegEncoder encoder;
    const QByteArray good = encoder.encode(halves(64, 40), 85);
    for (int round = 0; round < 3; ++round) {
        EXPECT_TRUE(encoder.encode(Picture(0, 0), 85).isEmpty());
        EXPECT_TRUE(encoder.encode(Picture(70000, 1), 85).isEmpty());
        EXPECT_EQ(encoder.encode(halves(64, 40), 85), good);
    }
}

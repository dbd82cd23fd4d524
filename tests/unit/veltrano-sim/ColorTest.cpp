#include "Color.h"

#include <gtest/gtest.h>

using namespace kor::veltrano::sim;

TEST(ColorTest, IsReadFromSixHexDigits)
{
    const std::optional<Color> color = toColor(QStringLiteral("#12aBff"));
    ASSERT_TRUE(color);
    EXPECT_EQ(color->red, 0x12);
    EXPECT_EQ(color->green, 0xab);
    EXPECT_EQ(color->blue, 0xff);
}

TEST(ColorTest, IsNotReadFromAnythingElse)
{
    for (const char* const text :
         {"", "#", "12abff", "#12abf", "#12abff0", "#12abfg", " #12abff", "#12abff\n", "red"}) {
        EXPECT_FALSE(toColor(QString::fromLatin1(text))) << text;
    }
}

TEST(ColorTest, IsScaledAndMixedWithinItsRange)
{
    const Color bright = scaled({100, 200, 0}, 1.5);
    EXPECT_EQ(bright.red, 150);
    EXPECT_EQ(bright.green, 255);
    EXPECT_EQ(bright.blue, 0);
    const Color between = mixed({0, 100, 255}, {100, 0, 255}, 0.25);
    EXPECT_EQ(between.red, 25);
    EXPECT_EQ(between.green, 75);
    EXPECT_EQ(between.blue, 255);
}

#include "Bytes.h"

#include <gtest/gtest.h>

using namespace kor::veltrano::sim;

TEST(BytesTest, AreReadFromTextOrFromBase64)
{
    EXPECT_EQ(toBytes({{QStringLiteral("text"), QString::fromUtf8("µ")}}), QByteArray("\xc2\xb5"));
    EXPECT_EQ(toBytes({{QStringLiteral("base64"), QStringLiteral("AP8=")}}),
              QByteArray("\0\xff", 2));
    EXPECT_EQ(toBytes({{QStringLiteral("base64"), QString()}}), QByteArray());
    EXPECT_EQ(toBytes({{QStringLiteral("text"), QString()}}), QByteArray());
}

TEST(BytesTest, AreNotReadFromAnythingElse)
{
    EXPECT_FALSE(toBytes({}));
    EXPECT_FALSE(toBytes({{QStringLiteral("text"), 1}}));
    EXPECT_FALSE(toBytes({{QStringLiteral("base64"), QStringLiteral("*")}}));
    EXPECT_FALSE(
        toBytes({{QStringLiteral("text"), QString()}, {QStringLiteral("base64"), QString()}}));
    EXPECT_FALSE(
        toBytes({{QStringLiteral("text"), QString()}, {QStringLiteral("more"), QString()}}));
}

TEST(BytesTest, AreShownAsTextOnlyWhereTheyAreUtf8)
{
    EXPECT_EQ(fromBytes("ab"),
              (QJsonObject{{QStringLiteral("base64"), QStringLiteral("YWI=")},
                           {QStringLiteral("text"), QStringLiteral("ab")}}));
    EXPECT_EQ(fromBytes(QByteArray("\xff")),
              (QJsonObject{{QStringLiteral("base64"), QStringLiteral("/w==")}}));
}

#include "robot/MyControllerInfo.h"

#include <gtest/gtest.h>

namespace kor::veltrano::daemons {
namespace {

TEST(MyControllerInfoTest, IsEmptyBeforeTheFirstEvent)
{
    EXPECT_EQ(MyControllerInfo().data(), QByteArray());
}

TEST(MyControllerInfoTest, KeepsTheNewestBytesUntouched)
{
    MyControllerInfo info;
    info.infoChangedEvent("old", 3);
    const char bytes[] = "\xFF\x00 no JSON";
    info.infoChangedEvent(bytes, sizeof(bytes) - 1);
    EXPECT_EQ(info.data(), QByteArray(bytes, sizeof(bytes) - 1));
}

TEST(MyControllerInfoTest, ACopyOutlivesTheEventsBuffer)
{
    MyControllerInfo info;
    char buffer[] = "abc";
    info.infoChangedEvent(buffer, 3);
    buffer[0] = 'X';
    EXPECT_EQ(info.data(), "abc");
}

} // namespace
} // namespace kor::veltrano::daemons

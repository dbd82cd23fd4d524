#include "robot/MyOdometry.h"

#include <QByteArrayList>

#include <gtest/gtest.h>

#include <thread>

namespace kor::veltrano::daemons {
namespace {

TEST(MyOdometryTest, BeforeTheFirstEventSevenZerosAreGiven)
{
    EXPECT_EQ(MyOdometry().data(), "[\n    0,\n    0,\n    0,\n    0,\n    0,\n    0,\n    0\n]\n");
}

TEST(MyOdometryTest, AReadingIsGivenInItsOrderWithTheDigitsOfWidenedFloats)
{
    MyOdometry odometry;
    odometry.readingsEvent(1.5, -2.25, 0.1, 0.1F, -0.2F, 3, 2147483647);
    EXPECT_EQ(odometry.data(),
              "[\n    1.5,\n    -2.25,\n    0.1,\n    0.10000000149011612,\n"
              "    -0.20000000298023224,\n    3,\n    2147483647\n]\n");
}

TEST(MyOdometryTest, AReplyNeverMixesTwoReadings)
{
    MyOdometry odometry;
    std::thread writer([&odometry] {
        for (int i = 0; i < 2000; ++i) {
            const auto f = float(i);
            odometry.readingsEvent(i, i, i, f, f, f, i);
        }
    });
    for (int i = 0; i < 500; ++i) {
        QByteArrayList numbers = odometry.data().simplified().mid(1).chopped(1).split(',');
        const QByteArray first = numbers.first().trimmed();
        for (const QByteArray& number : numbers) {
            ASSERT_EQ(number.trimmed(), first);
        }
    }
    writer.join();
}

} // namespace
} // namespace kor::veltrano::daemons

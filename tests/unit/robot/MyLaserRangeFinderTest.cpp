#include "robot/MyLaserRangeFinder.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <gtest/gtest.h>

namespace kor::veltrano::daemons {
namespace {

QJsonObject rendered(const api2::LaserRangeFinderReadings& scan)
{
    return QJsonDocument::fromJson(renderScan(scan)).object();
}

TEST(MyLaserRangeFinderTest, IntensitiesRepeatTheRanges)
{
    api2::LaserRangeFinderReadings scan;
    scan.ranges = {1, 2, 3};
    scan.intensities = {70, 80};
    EXPECT_EQ(rendered(scan).value("ranges"), (QJsonArray{1, 2, 3}));
    EXPECT_EQ(rendered(scan).value("intensities"), (QJsonArray{1, 2}));
}

TEST(MyLaserRangeFinderTest, WithoutIntensitiesTheirArrayIsEmpty)
{
    api2::LaserRangeFinderReadings scan;
    scan.ranges = {1, 2, 3};
    EXPECT_EQ(rendered(scan).value("intensities"), QJsonArray());
}

TEST(MyLaserRangeFinderTest, BeyondTheRangesIntensitiesAreZero)
{
    api2::LaserRangeFinderReadings scan;
    scan.ranges = {0.5F};
    scan.intensities = {7, 8, 9};
    EXPECT_EQ(rendered(scan).value("intensities"), (QJsonArray{0.5, 0, 0}));
}

TEST(MyLaserRangeFinderTest, EveryMemberIsRenderedWithTheDigitsOfWidenedFloats)
{
    api2::LaserRangeFinderReadings scan;
    scan.seq = -7;
    scan.stamp = 2147483647;
    scan.angle_min = -0.1F;
    scan.angle_max = 0.1F;
    scan.angle_increment = 0.25F;
    scan.time_increment = 0.5F;
    scan.scan_time = 1;
    scan.range_min = 2;
    scan.range_max = 3;
    EXPECT_EQ(renderScan(scan),
              "{\n    \"angle_increment\": 0.25,\n    \"angle_max\": 0.10000000149011612,\n"
              "    \"angle_min\": -0.10000000149011612,\n    \"intensities\": [\n    ],\n"
              "    \"range_max\": 3,\n    \"range_min\": 2,\n    \"ranges\": [\n    ],\n"
              "    \"scan_time\": 1,\n    \"seq\": -7,\n    \"stamp\": 2147483647,\n"
              "    \"time_increment\": 0.5\n}\n");
}

TEST(MyLaserRangeFinderTest, StartsDetachedAndAnswersAnEmptyScan)
{
    const MyLaserRangeFinder scanner;
    EXPECT_EQ(scanner.comId(), api2::ComId::null());
    const QJsonObject scan = QJsonDocument::fromJson(scanner.data()).object();
    EXPECT_EQ(scan.size(), 11);
    EXPECT_EQ(scan.value("ranges"), QJsonArray());
}

} // namespace
} // namespace kor::veltrano::daemons

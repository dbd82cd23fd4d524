#include "robot/MyLaserRangeFinder.h"

#include "robot/MyCom.h"
#include "support/Json.h"

namespace kor::veltrano::daemons {

MyLaserRangeFinder* laserRangeFinder = nullptr;

namespace {

// The first count values, and 0 where there are fewer.
QJsonArray firstValues(const std::vector<float>& values, std::size_t count)
{
    QJsonArray array;
    for (std::size_t i = 0; i < count; ++i) {
        array.append(i < values.size() ? double(values[i]) : 0.0);
    }
    return array;
}

} // namespace

MyLaserRangeFinder::MyLaserRangeFinder()
{
    QObject::connect(&idleTimer, &QTimer::timeout, &idleTimer, [this] { tick(); });
    idleTimer.start(tickIntervalMs);
}

MyLaserRangeFinder* MyLaserRangeFinder::acquire()
{
    laserRangeFinder->keepBound(com->id());
    return laserRangeFinder;
}

QByteArray MyLaserRangeFinder::data() const
{
    return renderScan(readings());
}

QByteArray renderScan(const api2::LaserRangeFinderReadings& scan)
{
    return renderJson(QJsonObject{
        {QStringLiteral("seq"), scan.seq},
        {QStringLiteral("stamp"), scan.stamp},
        {QStringLiteral("angle_min"), double(scan.angle_min)},
        {QStringLiteral("angle_max"), double(scan.angle_max)},
        {QStringLiteral("angle_increment"), double(scan.angle_increment)},
        {QStringLiteral("time_increment"), double(scan.time_increment)},
        {QStringLiteral("scan_time"), double(scan.scan_time)},
        {QStringLiteral("range_min"), double(scan.range_min)},
        {QStringLiteral("range_max"), double(scan.range_max)},
        {QStringLiteral("ranges"), firstValues(scan.ranges, scan.ranges.size())},
        // The strengths of the echoes never reach the clients, who rely on the ranges' repetition.
        {QStringLiteral("intensities"), firstValues(scan.ranges, scan.intensities.size())},
    });
}

} // namespace kor::veltrano::daemons

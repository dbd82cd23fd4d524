#include "LaserRangeFinder.h"

#include "Noise.h"
#include "Robot.h"
#include "World.h"

#include <QJsonArray>

#include <algorithm>
#include <cmath>

namespace kor::veltrano::sim {

namespace {

constexpr double scanS = 0.1;
constexpr qint64 scanMs = 100;
constexpr double angleMax = 0.75 * M_PI;
constexpr double angleStep = 2 * angleMax / (LaserRangeFinder::rays - 1);
// The mirror turns once in a scan.
constexpr double rayS = scanS * angleStep / (2 * M_PI);
// Keeps the scanner's noise apart from that of other devices with the same seed.
constexpr quint64 ownStream = Q_UINT64_C(0x6c61736572);

} // namespace

LaserRangeFinder::LaserRangeFinder(const World& surroundings, const Robot& carrier, quint64 seed)
    : HeldReadings(QStringLiteral("laserRangeFinder"), scanS,
                   {QStringLiteral("seq"), QStringLiteral("stamp")}),
      world(surroundings),
      robot(carrier),
      noiseSeed(seed ^ ownStream),
      pose(carrier.pose())
{
}

std::vector<Event> LaserRangeFinder::state() const
{
    return {{QStringLiteral("laserRangeFinder.scan"), readings()}};
}

double LaserRangeFinder::intensityAt(double distanceM, bool isMark)
{
    return std::round((isMark ? 4000 : 2000) / (1 + distanceM * distanceM));
}

void LaserRangeFinder::measure()
{
    ++sequence;
    pose = robot.pose();
    velocity = robot.velocity();
}

QJsonObject LaserRangeFinder::simulated() const
{
    QJsonArray ranges;
    QJsonArray intensities;
    for (int ray = 0; ray < rays; ++ray) {
        const Echo heard = echo(ray);
        ranges.append(heard.rangeM);
        intensities.append(heard.intensity);
    }
    // The protocol's stamp has 32 bits, which milliseconds exceed after 24 days.
    const qint64 stampMs = sequence * scanMs % (Q_INT64_C(1) << 31);
    return {{QStringLiteral("seq"), sequence},
            {QStringLiteral("stamp"), stampMs},
            {QStringLiteral("angle_min"), -angleMax},
            {QStringLiteral("angle_max"), angleMax},
            {QStringLiteral("angle_increment"), angleStep},
            {QStringLiteral("time_increment"), rayS},
            {QStringLiteral("scan_time"), scanS},
            {QStringLiteral("range_min"), rangeMinM},
            {QStringLiteral("range_max"), rangeMaxM},
            {QStringLiteral("ranges"), ranges},
            {QStringLiteral("intensities"), intensities}};
}

LaserRangeFinder::Echo LaserRangeFinder::echo(int ray) const
{
    const double ageS = (rays - 1 - ray) * rayS;
    const double phi = pose.phi - velocity.omega * ageS;
    const Point way = turned({velocity.vx, velocity.vy}, (pose.phi + phi) / 2) * ageS;
    const Point origin = Point{pose.x, pose.y} - way;
    const Point beam = direction(phi - angleMax + ray * angleStep);
    const std::optional<World::Hit> hit = world.firstHit(origin, beam, rangeMaxM);
    if (!hit) {
        return {rangeMaxM, 0};
    }
    const Point spot = origin + beam * hit->way;
    const bool isMark = hit->wall
        && std::any_of(hit->wall->marks.begin(), hit->wall->marks.end(),
                       [spot](const Mark& mark) { return mark.covers(spot); });
    const quint64 draw = static_cast<quint64>(sequence) * rays + static_cast<quint64>(ray);
    // Echoes from far away are fainter and their times less certain: 5 to 10 mm.
    const double noiseM =
        (0.005 + 0.005 * hit->way / rangeMaxM) * scatteredNormally(noiseSeed, draw);
    const double measuredM = std::clamp(hit->way + noiseM, rangeMinM, rangeMaxM);
    return {std::round(measuredM * 1000) / 1000, intensityAt(hit->way, isMark)};
}

} // namespace kor::veltrano::sim

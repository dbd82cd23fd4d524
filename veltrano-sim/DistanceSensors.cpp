#include "DistanceSensors.h"

#include "JsonShape.h"
#include "Robot.h"
#include "World.h"

#include <algorithm>
#include <cmath>

namespace kor::veltrano::sim {

namespace {

constexpr double readingS = 0.1;
const QLatin1String distancesKey("distances");
const QLatin1String voltagesKey("distanceVoltages");

} // namespace

DistanceSensors::DistanceSensors(const World& surroundings, const Robot& carrier)
    : Device({distancesKey, voltagesKey}, readingS), world(surroundings), robot(carrier)
{
}

std::vector<double> DistanceSensors::distances() const
{
    if (heldDistances) {
        return *heldDistances;
    }
    const Pose& pose = robot.pose();
    std::vector<double> result;
    for (int sensor = 0; sensor < count; ++sensor) {
        const Point ray = direction(pose.phi + sensor * 2 * M_PI / count);
        const double limit = Body::radius + rangeLimitM;
        const double way = world.rayLength({pose.x, pose.y}, ray, limit);
        result.push_back(std::max(0.0, way - Body::radius));
    }
    return result;
}

std::vector<double> DistanceSensors::voltages() const
{
    if (heldVoltages) {
        return *heldVoltages;
    }
    std::vector<double> result;
    for (const double distance : distances()) {
        result.push_back(voltageAt(distance));
    }
    return result;
}

double DistanceSensors::voltageAt(double distanceM)
{
    return 0.12 + 0.24 / (std::max(0.0, distanceM) + 0.08);
}

std::vector<Event> DistanceSensors::state() const
{
    return {{QStringLiteral("distanceSensorArray.distancesChanged"),
             {{QStringLiteral("values"), toJson(distances())}}},
            {QStringLiteral("distanceSensorArray.voltagesChanged"),
             {{QStringLiteral("values"), toJson(voltages())}}}};
}

QJsonObject DistanceSensors::show() const
{
    return {{distancesKey, toJson(distances())}, {voltagesKey, toJson(voltages())}};
}

Change DistanceSensors::prepare(const QString& key, const QJsonValue& value)
{
    const std::optional<std::vector<double>> numbers = toNumbers(value, count);
    if (!numbers) {
        return Change::refused(
            QStringLiteral("%1 must be an array of %2 numbers").arg(key).arg(count));
    }
    return Change::accepted([this, key, numbers] {
        (key == distancesKey ? heldDistances : heldVoltages) = numbers;
        announce();
    });
}

void DistanceSensors::unhold()
{
    heldDistances.reset();
    heldVoltages.reset();
}

} // namespace kor::veltrano::sim

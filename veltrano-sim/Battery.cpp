#include "Battery.h"

#include "JsonShape.h"
#include "Robot.h"

#include <algorithm>
#include <cmath>

namespace kor::veltrano::sim {

namespace {

constexpr double capacityAs = 20.0 * 3600;
constexpr double lowLevel = 0.15;
constexpr double lowReserveS = 60;
const QLatin1String batteryKey("battery");
const QLatin1String chargeKey("charge");
const QLatin1String fedKey("externalPower");

} // namespace

Battery::Battery(const Robot& consumer)
    : Device({batteryKey}), robot(consumer), reserveS(lowReserveS)
{
}

double Battery::loadA() const
{
    if (fed) {
        return 0;
    }
    const Velocity& velocity = robot.velocity();
    return 1.5 + 2.5 * std::hypot(velocity.vx, velocity.vy) + 0.8 * std::abs(velocity.omega);
}

double Battery::chargingA() const
{
    return fed ? std::min(8.0, 80 * (1 - level)) : 0;
}

double Battery::voltageV() const
{
    return 22.5 + 3.5 * level - 0.08 * loadA() + 0.15 * chargingA();
}

bool Battery::isLow() const
{
    return level < lowLevel;
}

int Battery::secondsLeft() const
{
    return static_cast<int>(std::ceil(reserveS));
}

QJsonObject Battery::show() const
{
    return {{batteryKey, QJsonObject{{chargeKey, level}, {fedKey, fed}}}};
}

Change Battery::prepare(const QString&, const QJsonValue& value)
{
    QJsonObject wish = show().value(batteryKey).toObject();
    const QJsonObject given = value.toObject();
    for (auto member = given.begin(); member != given.end(); ++member) {
        if (!wish.contains(member.key())) {
            return Change::refused(
                QStringLiteral("battery has no member %1; it has charge, externalPower")
                    .arg(member.key()));
        }
        wish.insert(member.key(), member.value());
    }
    const std::optional<double> charge = toNumber(wish.value(chargeKey));
    const QJsonValue outside = wish.value(fedKey);
    if (!value.isObject() || !charge || *charge < 0 || *charge > 1 || !outside.isBool()) {
        return Change::refused(
            QStringLiteral("battery must be an object with charge, a number from "
                           "0 to 1, and externalPower, true or false"));
    }
    return Change::accepted([this, charge, outside] {
        level = *charge;
        fed = outside.toBool();
    });
}

void Battery::simulate(double dtS)
{
    level = std::clamp(level + (chargingA() - loadA()) * dtS / capacityAs, 0.0, 1.0);
    reserveS = isLow() && !fed ? std::max(0.0, reserveS - dtS) : lowReserveS;
}

} // namespace kor::veltrano::sim

#include "robot/Velocity.h"

#include <cmath>

namespace kor::veltrano::daemons {

namespace {

// Written so that a limit or a value that is no number fails.
bool isWithin(float value, float limit)
{
    return std::abs(value) <= limit;
}

QString violation(const QString& pattern, float value, float limit)
{
    return pattern.arg(double(value)).arg(double(limit));
}

} // namespace

Velocity velocityFromJson(const QJsonArray& array)
{
    return {float(array.at(0).toDouble()), float(array.at(1).toDouble()),
            float(array.at(2).toDouble())};
}

QString limitViolation(const Velocity& velocity, const VelocityLimits& limits)
{
    if (!isWithin(velocity.vx, limits.vxmax)) {
        return violation(QStringLiteral("Error: MyOmniDrive::setData - vx out of bounds : vx = %1 "
                                        "| limit = %2"),
                         velocity.vx, limits.vxmax);
    }
    // The next two texts name a neighbour's component: so they are known, and so they stay.
    if (!isWithin(velocity.vy, limits.vymax)) {
        return violation(QStringLiteral("Error: MyOmniDrive::setData - vy out of bounds : vx = %1 "
                                        "| limit = %2"),
                         velocity.vy, limits.vymax);
    }
    if (!isWithin(velocity.omega, limits.omegamax)) {
        return violation(QStringLiteral("Error: MyOmniDrive::setData - vy out of bounds : omega = "
                                        "%1 | limit = %2"),
                         velocity.omega, limits.omegamax);
    }
    return {};
}

} // namespace kor::veltrano::daemons

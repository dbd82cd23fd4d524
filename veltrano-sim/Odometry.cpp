#include "Odometry.h"

#include "JsonShape.h"
#include "Robot.h"

namespace kor::veltrano::sim {

namespace {

constexpr double readingS = 0.04;

} // namespace

Odometry::Odometry(const Robot& tracked)
    : HeldReadings(QStringLiteral("odometry"), readingS, {QStringLiteral("sequence")}),
      robot(tracked)
{
}

std::vector<Event> Odometry::state() const
{
    return {{QStringLiteral("odometry.readings"), readings()}};
}

QJsonObject Odometry::simulated() const
{
    QJsonObject readings = toJson(robot.pose());
    const Velocity& velocity = robot.velocity();
    readings.insert(QStringLiteral("vx"), velocity.vx);
    readings.insert(QStringLiteral("vy"), velocity.vy);
    readings.insert(QStringLiteral("omega"), velocity.omega);
    readings.insert(QStringLiteral("sequence"), sequence);
    return readings;
}

} // namespace kor::veltrano::sim

#include "Robot.h"

#include "JsonShape.h"
#include "World.h"

#include <algorithm>
#include <cmath>

namespace kor::veltrano::sim {

namespace {

const QLatin1String poseKey("pose");
const QLatin1String velocityKey("velocity");
const QLatin1String commandedKey("commandedVelocity");

bool isStill(const Velocity& velocity)
{
    return velocity.vx == 0 && velocity.vy == 0 && velocity.omega == 0;
}

} // namespace

Robot::Robot(const World& world)
    : Device({poseKey, velocityKey, commandedKey}), body(world), place(world.start())
{
    touching = body.touches({place.x, place.y});
}

bool Robot::command(const QString& method, const QJsonObject& params)
{
    if (method != QLatin1String("omniDrive.setVelocity")) {
        return false;
    }
    const std::optional<Velocity> velocity = toVelocity(params);
    if (velocity) {
        drive.command(*velocity);
    }
    return velocity.has_value();
}

QJsonObject Robot::show() const
{
    return {{poseKey, toJson(place)},
            {velocityKey, toJson(drive.velocity())},
            {commandedKey, toJson(drive.commanded())}};
}

Change Robot::prepare(const QString& key, const QJsonValue& value)
{
    if (key == poseKey) {
        return preparePose(value);
    }
    const std::optional<Velocity> velocity = toVelocity(value);
    if (!velocity) {
        return Change::refused(
            QStringLiteral("%1 must be an object with the numbers vx, vy and omega").arg(key));
    }
    if (key == velocityKey) {
        if (!Drive::reaches(*velocity)) {
            return Change::refused(
                QStringLiteral("velocity is beyond what the drive reaches, %1 m/s "
                               "and %2 rad/s; commandedVelocity may be")
                    .arg(Drive::maxSpeedMPerS)
                    .arg(Drive::maxOmegaRadPerS));
        }
        return Change::accepted([this, velocity] { drive.force(*velocity); });
    }
    return Change::accepted([this, velocity] { drive.command(*velocity); });
}

Change Robot::preparePose(const QJsonValue& value)
{
    const std::optional<Pose> pose = toPose(value);
    if (!pose) {
        return Change::refused(
            QStringLiteral("pose must be an object with the numbers x, y and phi"));
    }
    if (std::max(std::abs(pose->x), std::abs(pose->y)) > World::farthestM) {
        return Change::refused(
            QStringLiteral("pose must be within -%1 and %1").arg(World::farthestM));
    }
    if (!body.fits({pose->x, pose->y})) {
        return Change::refused(
            QStringLiteral(
                "pose is inside of a wall or an obstacle: the robot needs %1 m around it")
                .arg(Body::radius));
    }
    return Change::accepted([this, pose] { standAt(*pose); });
}

void Robot::simulate(double dtS)
{
    drive.step(dtS);
    const Velocity velocity = drive.velocity();
    if (isStill(velocity)) {
        return;
    }
    const Pose from = place;
    standAt(body.moved(from, velocity, dtS));
    if (touching) {
        // What the wall took away is gone: the drive has to speed up again from what is left.
        const Point way{place.x - from.x, place.y - from.y};
        const Point speed = turned(way, -(from.phi + velocity.omega * dtS / 2)) * (1 / dtS);
        drive.force({speed.x, speed.y, velocity.omega});
    }
}

void Robot::standAt(const Pose& pose)
{
    place = pose;
    touching = body.touches({pose.x, pose.y});
}

} // namespace kor::veltrano::sim

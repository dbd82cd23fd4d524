// Robot: the drive and the hull together, moving through the world.
//
// It takes omniDrive.setVelocity and has no events of its own: odometry, bumper and distance
// sensors tell what it does.
#pragma once

#include "Body.h"
#include "Device.h"
#include "Drive.h"

namespace kor::veltrano::sim {

class Robot : public Device
{
public:
    // Stands at the world's start. The world must outlive the robot.
    explicit Robot(const World& world);

    const Pose& pose() const { return place; }
    // What the robot really does, in its own frame: 0 against a wall, whatever was commanded.
    const Velocity& velocity() const { return drive.velocity(); }
    const Velocity& commandedVelocity() const { return drive.commanded(); }
    // True while the hull touches a wall or an obstacle.
    bool isTouching() const { return touching; }

    bool command(const QString& method, const QJsonObject& params) override;
    QJsonObject show() const override;
    Change prepare(const QString& key, const QJsonValue& value) override;

protected:
    void simulate(double dtS) override;

private:
    Change preparePose(const QJsonValue& value);
    void standAt(const Pose& pose);

    Body body;
    Drive drive;
    Pose place;
    bool touching = false;
};

} // namespace kor::veltrano::sim

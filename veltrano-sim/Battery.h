// Battery: the robot's 24 V battery, drained by the electronics and the drive, and filled while the
// robot is fed from outside.
//
// It has no events of its own: power management and chargers tell of it.
#pragma once

#include "Device.h"

namespace kor::veltrano::sim {

class Robot;

class Battery : public Device
{
public:
    // The robot must outlive the battery.
    explicit Battery(const Robot& consumer);

    // From 0, empty, to 1.
    double charge() const { return level; }
    bool isFedFromOutside() const { return fed; }
    // What the robot draws from the battery, in A; 0 while it is fed from outside.
    double loadA() const;
    // What flows into the battery, in A; 0 unless the robot is fed from outside.
    double chargingA() const;
    double voltageV() const;
    bool isLow() const;
    // Seconds left until a low battery would end the robot's work.
    int secondsLeft() const;

    QJsonObject show() const override;
    Change prepare(const QString& key, const QJsonValue& value) override;

protected:
    void simulate(double dtS) override;

private:
    const Robot& robot;
    double level = 0.9;
    bool fed = false;
    double reserveS;
};

} // namespace kor::veltrano::sim

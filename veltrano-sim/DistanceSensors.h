// DistanceSensors: nine infrared sensors around the hull, 40 degrees apart, read ten times a
// second.
//
// Sensor 0 looks straight ahead, the others follow to the left. A distance counts from the hull's
// edge in m; where nothing is near it is the range limit. A voltage falls with the distance.
#pragma once

#include "Device.h"

#include <optional>
#include <vector>

namespace kor::veltrano::sim {

class Robot;
class World;

class DistanceSensors : public Device
{
public:
    static constexpr int count = 9;
    static constexpr double rangeLimitM = 0.4;

    // The world and the robot must outlive the sensors.
    DistanceSensors(const World& surroundings, const Robot& carrier);

    // In m, from 0 to rangeLimitM unless held.
    std::vector<double> distances() const;
    // In V.
    std::vector<double> voltages() const;
    // The voltage in V of a sensor that sees something at a distance in m.
    static double voltageAt(double distanceM);

    std::vector<Event> state() const override;
    QJsonObject show() const override;
    Change prepare(const QString& key, const QJsonValue& value) override;
    bool isHeld() const override { return heldDistances || heldVoltages; }

protected:
    void unhold() override;

private:
    const World& world;
    const Robot& robot;
    std::optional<std::vector<double>> heldDistances;
    std::optional<std::vector<double>> heldVoltages;
};

} // namespace kor::veltrano::sim

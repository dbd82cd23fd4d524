// LaserRangeFinder: the laser scanner in the robot's middle, with a scan ten times a second.
//
// 541 rays go from 135 degrees to the right to 135 degrees to the left, one after the other while
// the mirror turns, so that a scan of a moving robot is skewed. A scan is reckoned only when
// somebody wants it, from where the robot was and how it moved; its noise belongs to the seed and
// the scan's number. Being asked thus changes nothing.
#pragma once

#include "HeldReadings.h"
#include "Pose.h"

namespace kor::veltrano::sim {

class Robot;
class World;

class LaserRangeFinder : public HeldReadings
{
public:
    static constexpr int rays = 541;
    static constexpr double rangeMinM = 0.02;
    static constexpr double rangeMaxM = 5.6;

    // The world and the robot must outlive the scanner.
    LaserRangeFinder(const World& surroundings, const Robot& carrier, quint64 seed);

    QString subscription() const override { return QStringLiteral("laserRangeFinder"); }
    std::vector<Event> state() const override;

    // The intensity, without a unit, of the echo at a distance in m.
    static double intensityAt(double distanceM, bool isMark);

protected:
    void measure() override;
    QJsonObject simulated() const override;

private:
    struct Echo {
        double rangeM;
        double intensity;
    };
    Echo echo(int ray) const;

    const World& world;
    const Robot& robot;
    const quint64 noiseSeed;
    int sequence = 0;
    // Where the robot was and what it did when the newest scan was ready.
    Pose pose;
    Velocity velocity;
};

} // namespace kor::veltrano::sim

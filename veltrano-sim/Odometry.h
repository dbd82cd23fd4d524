// Odometry: the robot's pose and velocity as its wheels reckon them, 25 times a second.
//
// The wheels of this robot never slip, so that the pose is the true one in the world's frame.
#pragma once

#include "HeldReadings.h"

namespace kor::veltrano::sim {

class Robot;

class Odometry : public HeldReadings
{
public:
    // The robot must outlive the odometry.
    explicit Odometry(const Robot& tracked);

    std::vector<Event> state() const override;

protected:
    void measure() override { ++sequence; }
    QJsonObject simulated() const override;

private:
    const Robot& robot;
    int sequence = 0;
};

} // namespace kor::veltrano::sim

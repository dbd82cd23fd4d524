// Robot: what a program can do to the robot and learn from it.
//
// An interface, so that tests need none. All functions are called by the program's thread, wait
// for the robot's side to answer, and throw a Problem that says why they failed.
#pragma once

#include "Sensor.h"

namespace kor::veltrano::lumview {

class Robot
{
public:
    virtual ~Robot() = default;

    // Drives on at these speeds, in m/s and rad/s; must be repeated within 400 ms.
    virtual void drive(double vx, double vy, double omega) = 0;
    // The value of a sensor with a number that checkNumber() allows; a digital one's is 0 or 1.
    virtual double read(Sensor sensor, int number) = 0;

protected:
    Robot() = default;
    Robot(const Robot&) = default;
    Robot& operator=(const Robot&) = default;
};

} // namespace kor::veltrano::lumview

// Sensor: what a program can read from the robot, by name and number.
#pragma once

#include <string>

namespace kor::veltrano::lumview {

enum class Sensor { Odometry, Distance, Analog, Digital, Bumper };

// Throws a Problem where the sensors of this kind have no such number.
void checkNumber(Sensor sensor, double number);

// The number of an odometry's value, which the language knows by the names x, y, phi, vx, vy and
// omega; -1 for another name.
int odometryNumber(const std::string& name);

} // namespace kor::veltrano::lumview

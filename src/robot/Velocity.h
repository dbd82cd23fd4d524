// Velocity commands as clients send them, and the limits that they must keep.
#pragma once

#include <QJsonArray>
#include <QString>

namespace kor::veltrano::daemons {

// vx and vy in m/s, omega in rad/s.
struct Velocity {
    float vx = 0;
    float vy = 0;
    float omega = 0;
};

// The largest permitted absolute values, in the same units.
struct VelocityLimits {
    float vxmax = 0;
    float vymax = 0;
    float omegamax = 0;
};

// Up to three numbers in the order vx, vy, omega; what is missing or no number is 0, and what
// follows is ignored.
Velocity velocityFromJson(const QJsonArray& array);

// What is wrong with the first component that exceeds its limit; empty where none does. A component
// exactly at its limit passes.
QString limitViolation(const Velocity& velocity, const VelocityLimits& limits);

} // namespace kor::veltrano::daemons

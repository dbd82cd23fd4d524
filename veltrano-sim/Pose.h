// Pose and Velocity: where the robot stands and how it moves. Plain values.
#pragma once

namespace kor::veltrano::sim {

// In the world's frame: x and y in m, phi in rad, in (-pi, pi], counted from the x axis to the
// left.
struct Pose {
    double x = 0;
    double y = 0;
    double phi = 0;
};

// In the robot's frame: vx ahead and vy to the left in m/s, omega to the left in rad/s.
struct Velocity {
    double vx = 0;
    double vy = 0;
    double omega = 0;
};

// The same angle in (-pi, pi].
double wrappedAngle(double angle);

} // namespace kor::veltrano::sim

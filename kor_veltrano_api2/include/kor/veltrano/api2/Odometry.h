// Odometry: the robot's pose and speed, reckoned from its wheels.
#pragma once

namespace kor::veltrano::api2 {

class Odometry
{
public:
    Odometry();
    virtual ~Odometry();
    Odometry(const Odometry&) = delete;
    Odometry& operator=(const Odometry&) = delete;

    // Pose x, y in m and phi in rad, speed vx, vy in m/s and omega in rad/s, and a number that
    // increases with each reading.
    virtual void readingsEvent(double x, double y, double phi, float vx, float vy, float omega,
                               int sequence);
    // The pose in a map, in m and rad, or in pixels and rad of its image. Never sent over this
    // connection.
    virtual void mapFrameCoordinatesEvent(double x, double y, double phi);
    virtual void mapImagePixelCoordinatesEvent(int x, int y, double phi);
};

} // namespace kor::veltrano::api2

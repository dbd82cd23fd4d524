// MyOdometry: the newest pose and speed that the robot has reported.
//
// The event runs on the main thread, readers on any; valuesMutex guards the fields.
#pragma once

#include "kor/veltrano/api2/Odometry.h"

#include <QByteArray>
#include <QMutex>

namespace kor::veltrano::daemons {

class MyOdometry : public api2::Odometry
{
public:
    void readingsEvent(double newX, double newY, double newPhi, float newVx, float newVy,
                       float newOmega, int newSequence) override;

    // The reply of /data/odometry: an array of x, y in m, phi in rad, vx, vy in m/s, omega in rad/s
    // and the reading's number; seven zeros before the first event. Any thread.
    QByteArray data() const;

private:
    mutable QMutex valuesMutex;
    double x = 0;
    double y = 0;
    double phi = 0;
    float vx = 0;
    float vy = 0;
    float omega = 0;
    int sequence = 0;
};

extern MyOdometry* odometry;

} // namespace kor::veltrano::daemons

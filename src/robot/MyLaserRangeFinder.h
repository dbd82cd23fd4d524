// MyLaserRangeFinder: the laser scanner. The last scan lives in the library's object. Built and
// deleted by main.
#pragma once

#include "robot/OnDemand.h"

#include "kor/veltrano/api2/LaserRangeFinder.h"

#include <QByteArray>
#include <QTimer>

namespace kor::veltrano::daemons {

class MyLaserRangeFinder : public OnDemand<api2::LaserRangeFinder>
{
public:
    MyLaserRangeFinder();

    // The scanner, bound to the connection for the next seconds. Any thread.
    static MyLaserRangeFinder* acquire();

    // The reply of /data/scan0: an object of the scan's number and time, its angles in rad, its
    // times in s, its limits in m, and "ranges", one distance in m a ray. "intensities" has one
    // entry an intensity, but repeats the ranges; 0 where there are none left. Any thread.
    QByteArray data() const;

private:
    QTimer idleTimer;
};

extern MyLaserRangeFinder* laserRangeFinder;

// The scan as it is told to clients; see MyLaserRangeFinder::data().
QByteArray renderScan(const api2::LaserRangeFinderReadings& scan);

} // namespace kor::veltrano::daemons

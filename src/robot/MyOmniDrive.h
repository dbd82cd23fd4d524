// MyOmniDrive: the drive, with a limit on each component of a command and a watchdog.
//
// The watchdog stops the robot when commands stop coming: each permitted request arms it for 5
// ticks of 100 ms, whatever becomes of the request, so the stop comes 400 to 500 ms after the last
// one. It is sent once; an idle drive causes no traffic. Built and deleted by main; setData() runs
// on HTTP threads, the tick on the main thread. At its destruction no stop is sent.
//
//   idle --permitted request--> armed --tick--> armed --fifth tick without one, stop--> idle
#pragma once

#include "robot/IdleCountdown.h"
#include "robot/Velocity.h"

#include "kor/veltrano/api2/OmniDrive.h"

#include <QByteArray>
#include <QTimer>

#include <atomic>
#include <chrono>

namespace kor::veltrano::daemons {

class MyOmniDrive : public api2::OmniDrive
{
public:
    // Reads the limits from the settings; a text that is no number permits only 0.
    MyOmniDrive();

    // Arms the watchdog, then applies the body. The write of /data/omnidrive. Any thread.
    bool armAndSetData(const QByteArray& data);

    // A JSON array of up to three numbers: vx, vy in m/s, omega in rad/s. True where it went to the
    // robot. A component beyond its limit stops the robot; a body that is no JSON leaves it alone.
    bool setData(const QByteArray& data);

    // One tick of the watchdog. Main thread.
    void tick();

private:
    using Clock = std::chrono::steady_clock;

    void onTimeout();

    QTimer idleTimer;
    IdleCountdown idleCountdown;
    // When the timer is to fire next. Main thread.
    Clock::time_point nextTick;
    std::atomic<Clock::time_point> armedAt = Clock::time_point::min();
    VelocityLimits limits;
};

extern MyOmniDrive* omniDrive;

} // namespace kor::veltrano::daemons

// OnDemand: a device whose data is heavy, so that the robot sends it only while a client is asking.
//
// A request binds the device to the connection and restarts a countdown of 10 ticks of 1000 ms;
// when it ends, the device is detached. So it stays bound for 9 to 10 seconds after the last
// request. The first request after that gets what the library still holds: data flows only once the
// binding has taken effect. Requests come on HTTP threads, ticks on the main thread; the library's
// setComId() may be called from both.
//
//   detached --request--> bound --request--> bound --tenth tick without one--> detached
#pragma once

#include "robot/IdleCountdown.h"

#include "kor/veltrano/api2/ComId.h"

namespace kor::veltrano::daemons {

template<typename Device>
class OnDemand : public Device
{
public:
    static constexpr int tickIntervalMs = 1000;

    OnDemand() : Device(api2::ComId::null()) { }

    // Binds the device to the connection, unless it is, and restarts the countdown. Any thread.
    void keepBound(const api2::ComId& connection)
    {
        if (this->comId() != connection) {
            this->setComId(connection);
        }
        idleCountdown.restart(10);
    }

    // One tick of the countdown. Main thread.
    void tick()
    {
        if (idleCountdown.tick()) {
            this->setComId(api2::ComId::null());
        }
    }

private:
    IdleCountdown idleCountdown;
};

} // namespace kor::veltrano::daemons

// IdleCountdown: how many ticks of a timer are left until nobody has asked for something any more.
//
// Requests restart it on HTTP threads, the device's timer counts it down on the main thread,
// without a lock. The two may meet: then the restart wins, so that a device which is asked for is
// never left without its countdown. For the drive that would be a robot that nothing stops.
//
//   idle --restart--> counting --tick, ticks left--> counting
//                     counting --last tick, which says so--> idle
#pragma once

#include <atomic>

namespace kor::veltrano::daemons {

class IdleCountdown
{
public:
    // Any thread.
    void restart(int ticks) { ticksLeft = ticks; }

    // Counts one tick; true on the one that ends the countdown, and only then. Main thread.
    bool tick()
    {
        // Not a copy that is written back: a restart in between would be lost.
        return ticksLeft > 0 && --ticksLeft == 0;
    }

private:
    std::atomic<int> ticksLeft = 0;
};

} // namespace kor::veltrano::daemons

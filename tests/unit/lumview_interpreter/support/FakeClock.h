// FakeClock: time that passes only where the program sleeps, up to a moment that a test chooses.
#pragma once

#include "Clock.h"
#include "Interrupted.h"

#include <csignal>

namespace kor::veltrano::lumview {

class FakeClock : public Clock
{
public:
    Time now() const override { return time; }

    void sleepUntil(Time end) override
    {
        ++sleeps;
        if (sleeps > mostSleeps) {
            throw Interrupted{SIGTERM};
        }
        if (end > start + std::chrono::milliseconds(interruptedAtMs)) {
            throw Interrupted{SIGTERM};
        }
        time = end > time ? end : time;
    }

    void pass(std::chrono::milliseconds duration) { time += duration; }
    long timeMs() const
    {
        return long(std::chrono::duration_cast<std::chrono::milliseconds>(time - start).count());
    }

    // The program is interrupted in a sleep beyond this time, or in one beyond this number.
    long interruptedAtMs = 1000000000;
    int mostSleeps = 100000;

private:
    const Time start = Time() + std::chrono::hours(1);
    Time time = start;
    int sleeps = 0;
};

} // namespace kor::veltrano::lumview

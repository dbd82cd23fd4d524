// Clock: the time that passes while a program runs, and the wish of others that it ends.
//
// An interface, so that tests decide what time it is. The program runs on one thread, which alone
// calls it.
#pragma once

#include <chrono>

namespace kor::veltrano::lumview {

class Clock
{
public:
    using Time = std::chrono::steady_clock::time_point;

    virtual ~Clock() = default;

    virtual Time now() const = 0;
    // Returns at that time, at once where it has passed; throws Interrupted as soon as the program
    // shall end.
    virtual void sleepUntil(Time end) = 0;

protected:
    Clock() = default;
    Clock(const Clock&) = default;
    Clock& operator=(const Clock&) = default;
};

} // namespace kor::veltrano::lumview

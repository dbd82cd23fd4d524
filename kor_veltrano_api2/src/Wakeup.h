// Wakeup: interrupts the socket thread's wait from any other thread.
#pragma once

#include <chrono>

namespace kor::veltrano::api2::detail {

using Clock = std::chrono::steady_clock;

class Wakeup
{
public:
    Wakeup();
    ~Wakeup();
    Wakeup(const Wakeup&) = delete;
    Wakeup& operator=(const Wakeup&) = delete;

    // Ends the present wait, or the next where none is going on. Any thread.
    void notify() const;
    // Waits until one of the given poll() events is there for the descriptor, until notify() or
    // until the deadline, and gives the descriptor's events, or 0. A descriptor of -1 stands for
    // none. One thread only.
    short wait(int descriptor, short events, Clock::time_point deadline) const;

private:
    int counter;
};

} // namespace kor::veltrano::api2::detail

// SignalClock: the steady clock, interrupted by SIGTERM, SIGINT and SIGHUP.
//
// One object a process, created by main before any other thread: the signals are blocked from then
// on, in this thread and in all that it starts, and arrive only where sleepUntil() waits for them.
// So no statement is cut in two, and what must be done before the end is done in order.
#pragma once

#include "Clock.h"

#include <csignal>

namespace kor::veltrano::lumview {

class SignalClock : public Clock
{
public:
    SignalClock();

    Time now() const override { return std::chrono::steady_clock::now(); }
    void sleepUntil(Time end) override;

private:
    sigset_t signals{};
};

} // namespace kor::veltrano::lumview

#include "SignalClock.h"

#include "Interrupted.h"

#include <algorithm>

namespace kor::veltrano::lumview {

SignalClock::SignalClock()
{
    sigemptyset(&signals);
    for (const int number : {SIGTERM, SIGINT, SIGHUP}) {
        sigaddset(&signals, number);
    }
    pthread_sigmask(SIG_BLOCK, &signals, nullptr);
}

void SignalClock::sleepUntil(Time end)
{
    using namespace std::chrono;
    // A pending signal is taken even where there is no time left to sleep.
    do {
        const auto left = std::max<nanoseconds>(end - now(), nanoseconds(0));
        const auto wholeSeconds = duration_cast<seconds>(left);
        const timespec timeout{time_t(wholeSeconds.count()), long((left - wholeSeconds).count())};
        const int number = sigtimedwait(&signals, nullptr, &timeout);
        if (number > 0) {
            throw Interrupted{number};
        }
    } while (now() < end);
}

} // namespace kor::veltrano::lumview

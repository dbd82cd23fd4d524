#include "DelayLine.h"

#include <algorithm>

namespace kor::veltrano::sim {

DelayLine::DelayLine()
{
    clock.start();
    timer.setSingleShot(true);
    timer.setTimerType(Qt::PreciseTimer);
    QObject::connect(&timer, &QTimer::timeout, [this] { passOn(); });
}

void DelayLine::push(int delayMs, qint64 bytes, const Work& work)
{
    if (delayMs <= 0 && waiting.empty()) {
        work();
        return;
    }
    waiting.push_back({clock.elapsed() + delayMs, bytes, work});
    waitingTotal += bytes;
    if (!timer.isActive()) {
        timer.start(delayMs);
    }
}

void DelayLine::clear()
{
    waiting.clear();
    waitingTotal = 0;
    timer.stop();
}

void DelayLine::passOn()
{
    // Work that is due after a shorter delay still waits for what came before it.
    while (!waiting.empty() && waiting.front().dueMs <= clock.elapsed()) {
        const Entry entry = std::move(waiting.front());
        waiting.pop_front();
        waitingTotal -= entry.bytes;
        entry.work();
    }
    if (!waiting.empty()) {
        timer.start(static_cast<int>(std::max<qint64>(0, waiting.front().dueMs - clock.elapsed())));
    }
}

} // namespace kor::veltrano::sim

// DelayLine: passes pieces of work on after a delay, in the order in which they came.
//
// Each session owns one for each direction. Without a delay and with nothing waiting the work is
// done inside push(). Main thread only.
#pragma once

#include <QElapsedTimer>
#include <QTimer>

#include <deque>
#include <functional>

namespace kor::veltrano::sim {

class DelayLine
{
public:
    using Work = std::function<void()>;

    DelayLine();

    // Does the work after delayMs, or later where earlier work is still waiting. bytes is what the
    // work keeps in memory until then.
    void push(int delayMs, qint64 bytes, const Work& work);
    // What all waiting work keeps in memory.
    qint64 waitingBytes() const { return waitingTotal; }
    // Forgets all waiting work.
    void clear();

private:
    struct Entry {
        qint64 dueMs;
        qint64 bytes;
        Work work;
    };

    void passOn();

    std::deque<Entry> waiting;
    qint64 waitingTotal = 0;
    QElapsedTimer clock;
    QTimer timer;
};

} // namespace kor::veltrano::sim

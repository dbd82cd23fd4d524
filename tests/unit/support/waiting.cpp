#include "support/waiting.h"

#include <QElapsedTimer>
#include <QEventLoop>
#include <QTimer>

namespace kor::veltrano::daemons {

bool waitUntil(const std::function<bool()>& condition)
{
    constexpr int deadlineMs = 30'000;
    constexpr int intervalMs = 5;
    bool isTrue = condition();
    QElapsedTimer elapsed;
    elapsed.start();
    QEventLoop loop;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, &loop, [&condition, &isTrue, &elapsed, &loop] {
        isTrue = condition();
        if (isTrue || elapsed.hasExpired(deadlineMs)) {
            loop.quit();
        }
    });
    timer.start(intervalMs);
    if (!isTrue) {
        loop.exec();
    }
    return isTrue;
}

} // namespace kor::veltrano::daemons

#include "support/waiting.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QTimer>

namespace kor::veltrano::sim {

bool waitUntil(const std::function<bool()>& condition)
{
    QTimer beat;
    beat.start(5);
    const QDeadlineTimer deadline(20000);
    while (!condition()) {
        if (deadline.hasExpired()) {
            return false;
        }
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    return true;
}

} // namespace kor::veltrano::sim

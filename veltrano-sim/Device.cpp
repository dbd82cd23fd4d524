#include "Device.h"

namespace kor::veltrano::sim {

Device::Device(const QStringList& keys, double newsPeriodS)
    : stateKeys(keys), periodS(newsPeriodS), untilNewsS(newsPeriodS)
{
}

void Device::step(double dtS)
{
    simulate(dtS);
    if (periodS <= 0) {
        return;
    }
    untilNewsS -= dtS;
    // The sum of many short steps misses the period by rounding.
    if (untilNewsS <= 1e-9) {
        untilNewsS += periodS;
        measure();
        announce();
    }
}

std::vector<Event> Device::takeNews()
{
    newsWaiting = false;
    return news();
}

void Device::dropNews()
{
    newsWaiting = false;
    forgetNews();
}

bool Device::command(const QString&, const QJsonObject&)
{
    return false;
}

void Device::release()
{
    if (isHeld()) {
        unhold();
        announce();
    }
}

void Device::simulate(double) { }

} // namespace kor::veltrano::sim

#include "PowerManagement.h"

#include "Battery.h"

namespace kor::veltrano::sim {

PowerManagement::PowerManagement(const Battery& supply)
    : HeldReadings(QStringLiteral("powerManagement"), 1,
                   {QStringLiteral("num_chargers"), QStringLiteral("batteryLowShutdownCounter")}),
      battery(supply)
{
}

std::vector<Event> PowerManagement::state() const
{
    return {{QStringLiteral("powerManagement.readings"), readings()}};
}

QJsonObject PowerManagement::simulated() const
{
    return {{QStringLiteral("voltage"), battery.voltageV()},
            {QStringLiteral("current"), battery.loadA()},
            {QStringLiteral("ext_power"), battery.isFedFromOutside()},
            {QStringLiteral("num_chargers"), 2},
            {QStringLiteral("batteryType"), QStringLiteral("lead-acid 24 V")},
            {QStringLiteral("batteryLow"), battery.isLow()},
            {QStringLiteral("batteryLowShutdownCounter"), battery.secondsLeft()}};
}

} // namespace kor::veltrano::sim

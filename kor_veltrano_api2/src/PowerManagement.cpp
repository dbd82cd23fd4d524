#include "kor/veltrano/api2/PowerManagement.h"

#include "Library.h"
#include "Text.h"

namespace kor::veltrano::api2 {

namespace {

// What the given member of the last readings holds.
template<class Value>
Value last(Value detail::PowerReadings::*member)
{
    return detail::library().hub.read(
        [member](const detail::DeviceState& state) { return state.power.*member; });
}

} // namespace

PowerManagement::PowerManagement()
{
    detail::library().roster.add(this);
}

PowerManagement::~PowerManagement()
{
    detail::library().roster.remove(this);
}

void PowerManagement::readingsEvent(float, float, bool, int, const char*, bool, int) { }

float PowerManagement::voltage() const
{
    return last(&detail::PowerReadings::voltage);
}

bool PowerManagement::ext_power() const
{
    return last(&detail::PowerReadings::extPower);
}

int PowerManagement::num_chargers() const
{
    return last(&detail::PowerReadings::numChargers);
}

const char* PowerManagement::batteryType() const
{
    return detail::keptForThread<PowerManagement>(last(&detail::PowerReadings::batteryType));
}

bool PowerManagement::batteryLow() const
{
    return last(&detail::PowerReadings::batteryLow);
}

int PowerManagement::batteryLowShutdownCounter() const
{
    return last(&detail::PowerReadings::batteryLowShutdownCounter);
}

} // namespace kor::veltrano::api2

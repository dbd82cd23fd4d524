#include "kor/veltrano/api2/AnalogInputArray.h"

#include "Library.h"

#include <algorithm>

namespace kor::veltrano::api2 {

AnalogInputArray::AnalogInputArray()
{
    detail::library().roster.add(this);
}

AnalogInputArray::~AnalogInputArray()
{
    detail::library().roster.remove(this);
}

void AnalogInputArray::valuesChangedEvent(const float*, unsigned int) { }

unsigned int AnalogInputArray::numAnalogInputs()
{
    return detail::analogInputCount;
}

void AnalogInputArray::values(float* values) const
{
    const auto last = detail::library().hub.read(
        [](const detail::DeviceState& state) { return state.analogInputs.volts; });
    std::copy(last.begin(), last.end(), values);
}

} // namespace kor::veltrano::api2

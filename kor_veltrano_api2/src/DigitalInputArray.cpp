#include "kor/veltrano/api2/DigitalInputArray.h"

#include "Library.h"

#include <algorithm>

namespace kor::veltrano::api2 {

DigitalInputArray::DigitalInputArray()
{
    detail::library().roster.add(this);
}

DigitalInputArray::~DigitalInputArray()
{
    detail::library().roster.remove(this);
}

void DigitalInputArray::valuesChangedEvent(const int*, unsigned int) { }

unsigned int DigitalInputArray::numDigitalInputs()
{
    return detail::digitalInputCount;
}

void DigitalInputArray::values(int* values) const
{
    const auto last = detail::library().hub.read(
        [](const detail::DeviceState& state) { return state.digitalInputs.values; });
    std::copy(last.begin(), last.end(), values);
}

} // namespace kor::veltrano::api2

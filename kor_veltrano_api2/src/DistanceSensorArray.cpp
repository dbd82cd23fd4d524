#include "kor/veltrano/api2/DistanceSensorArray.h"

#include "Library.h"

#include <algorithm>

namespace kor::veltrano::api2 {

DistanceSensorArray::DistanceSensorArray()
{
    detail::library().roster.add(this);
}

DistanceSensorArray::~DistanceSensorArray()
{
    detail::library().roster.remove(this);
}

void DistanceSensorArray::voltagesChangedEvent(const float*, unsigned int) { }

void DistanceSensorArray::distancesChangedEvent(const float*, unsigned int) { }

void DistanceSensorArray::distances(float* distances) const
{
    const auto last = detail::library().hub.read(
        [](const detail::DeviceState& state) { return state.distances.metres; });
    std::copy(last.begin(), last.end(), distances);
}

} // namespace kor::veltrano::api2

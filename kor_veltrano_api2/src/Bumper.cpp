#include "kor/veltrano/api2/Bumper.h"

#include "Library.h"

namespace kor::veltrano::api2 {

Bumper::Bumper()
{
    detail::library().roster.add(this);
}

Bumper::~Bumper()
{
    detail::library().roster.remove(this);
}

void Bumper::bumperEvent(bool) { }

bool Bumper::value() const
{
    return detail::library().hub.read(
        [](const detail::DeviceState& state) { return state.bumper.isHit; });
}

} // namespace kor::veltrano::api2

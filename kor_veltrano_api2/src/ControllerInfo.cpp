#include "kor/veltrano/api2/ControllerInfo.h"

#include "Library.h"

namespace kor::veltrano::api2 {

ControllerInfo::ControllerInfo()
{
    detail::library().roster.add(this);
}

ControllerInfo::~ControllerInfo()
{
    detail::library().roster.remove(this);
}

void ControllerInfo::infoChangedEvent(const char*, int) { }

} // namespace kor::veltrano::api2

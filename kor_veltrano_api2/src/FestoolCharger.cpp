#include "kor/veltrano/api2/FestoolCharger.h"

#include "Library.h"

namespace kor::veltrano::api2 {

FestoolCharger::FestoolCharger()
{
    detail::library().roster.add(this);
}

FestoolCharger::~FestoolCharger()
{
    detail::library().roster.remove(this);
}

void FestoolCharger::infoChangedEvent(const char*, int) { }

} // namespace kor::veltrano::api2

// MyFestoolCharger: the information record of the battery pack's charger, kept for whoever asks.
#pragma once

#include "robot/CachedRecord.h"

#include "kor/veltrano/api2/FestoolCharger.h"

namespace kor::veltrano::daemons {

class MyFestoolCharger : public CachedRecord<api2::FestoolCharger>
{
};

extern MyFestoolCharger* festoolCharger;

} // namespace kor::veltrano::daemons

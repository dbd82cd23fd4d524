// MyControllerInfo: the information record of the robot's controller, kept for whoever asks.
#pragma once

#include "robot/CachedRecord.h"

#include "kor/veltrano/api2/ControllerInfo.h"

namespace kor::veltrano::daemons {

class MyControllerInfo : public CachedRecord<api2::ControllerInfo>
{
};

extern MyControllerInfo* controllerInfo;

} // namespace kor::veltrano::daemons

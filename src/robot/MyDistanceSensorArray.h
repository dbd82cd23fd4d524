// MyDistanceSensorArray: the distance sensors. The library's own getters answer on any thread.
#pragma once

#include "kor/veltrano/api2/DistanceSensorArray.h"

#include <QByteArray>

namespace kor::veltrano::daemons {

class MyDistanceSensorArray : public api2::DistanceSensorArray
{
};

extern MyDistanceSensorArray* distanceSensorArray;

// The reply of /data/distancesensorarray: an array of 9 distances in m. Any thread.
QByteArray createDistanceSensorArrayData();

} // namespace kor::veltrano::daemons

// MyAnalogInputArray: the robot's analog inputs. The library's own getters answer on any thread.
#pragma once

#include "kor/veltrano/api2/AnalogInputArray.h"

#include <QByteArray>

namespace kor::veltrano::daemons {

class MyAnalogInputArray : public api2::AnalogInputArray
{
};

extern MyAnalogInputArray* analogInputArray;

// The reply of /data/analoginputarray: an array of one voltage in V an input. Any thread.
QByteArray createAnalogInputArrayData();

} // namespace kor::veltrano::daemons

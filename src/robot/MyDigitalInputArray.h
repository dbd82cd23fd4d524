// MyDigitalInputArray: the robot's digital inputs. The library's own getters answer on any thread.
#pragma once

#include "kor/veltrano/api2/DigitalInputArray.h"

#include <QByteArray>

namespace kor::veltrano::daemons {

class MyDigitalInputArray : public api2::DigitalInputArray
{
};

extern MyDigitalInputArray* digitalInputArray;

// The reply of /data/digitalinputarray: an array of one boolean an input, true where the library's
// number is above 0. Any thread.
QByteArray createDigitalInputArrayData();

} // namespace kor::veltrano::daemons

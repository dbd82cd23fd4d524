// MyBumper: the contact strip around the robot. The library's own getter answers on any thread.
#pragma once

#include "kor/veltrano/api2/Bumper.h"

#include <QByteArray>

namespace kor::veltrano::daemons {

class MyBumper : public api2::Bumper
{
};

extern MyBumper* bumper;

// The reply of /data/bumper: an object with the boolean "value". Any thread.
QByteArray createBumperData();

} // namespace kor::veltrano::daemons

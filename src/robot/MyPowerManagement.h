// MyPowerManagement: the robot's supply and battery. The library's own getters answer on any
// thread.
#pragma once

#include "kor/veltrano/api2/PowerManagement.h"

#include <QByteArray>

namespace kor::veltrano::daemons {

class MyPowerManagement : public api2::PowerManagement
{
public:
    // The reply of /data/powermanagement: an object of the battery's voltage in V, whether the
    // robot is fed from outside, its chargers' number, the battery's type and whether it runs low.
    // Any thread.
    QByteArray data() const;
};

extern MyPowerManagement* powerManagement;

} // namespace kor::veltrano::daemons

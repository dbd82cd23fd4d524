// MyCharger: one of the robot's two built-in chargers. The library's own getters answer on any
// thread.
#pragma once

#include "kor/veltrano/api2/Charger.h"

#include <QByteArray>

namespace kor::veltrano::daemons {

class MyCharger : public api2::Charger
{
public:
    // Stands for the charger of that number, 0 or 1, whether or not it is attached.
    explicit MyCharger(int number);

    // The reply of /data/charger0 and /data/charger1: an object of the charger's number, its clock,
    // battery voltage in V, charging current in A, two temperatures in degrees Celsius, its state
    // as number and text, and its version as "1.2.3". Any thread.
    QByteArray data() const;
};

extern MyCharger* charger0;
extern MyCharger* charger1;

} // namespace kor::veltrano::daemons

// The contents of the robot's two records, as JSON text. Free functions.
#pragma once

#include <QByteArray>

namespace kor::veltrano::sim {

class Battery;

// Host name, uptime in s, load averages and memory in bytes of the machine that this runs on.
QByteArray controllerRecord();
// What the charger of the outside maker's battery pack reports: state, voltage in V, current in A,
// temperature in degrees Celsius and charge in percent.
QByteArray batteryPackRecord(const Battery& battery);

} // namespace kor::veltrano::sim

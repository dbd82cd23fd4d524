// Instances: builds, wires and takes down the long-lived objects. Called by main alone, on the main
// thread; everything it makes is reached through the process-wide pointer that its class declares.
#pragma once

#include "daemon/CommandLine.h"

namespace kor::veltrano::daemons {

// The log, the access manager, the connection to the robot and the robot's devices, in this order.
// Reads settings.
void buildInstances(const CommandLine& commandLine);

// The opposite, in its own order: the devices first, then the HTTP port, then access and log.
// Before the first deletion the requests inside are waited for; later ones are answered as unknown
// paths until the port is gone. The listener's object itself stays until the process ends.
void takeDownInstances();

} // namespace kor::veltrano::daemons

// MyCom: the daemon's one connection to the robot's RPC server.
//
// Built and deleted by main on the main thread, whose event pump calls processEvents(); so all
// events, of this class and of the devices, run there. A lost connection changes nothing in the
// devices: they keep what they last held. Nothing in the daemon stores whether it is up.
#pragma once

#include "kor/veltrano/api2/Com.h"

namespace kor::veltrano::daemons {

class MyCom : public api2::Com
{
public:
    void connectedEvent() override;
    void disconnectedEvent() override;
};

extern MyCom* com;

} // namespace kor::veltrano::daemons

// Reads the wired setup from NetworkManager's keyfile.
#pragma once

#include "network/EthInterface.h"

namespace kor::veltrano::daemons {

// The file of the setting NetworkManager/eth0, of which the section "[ipv4]" counts. eth0 is always
// there; an alias is where the file has an address of its own for it. A file that cannot be opened
// gives eth0 with the defaults alone. Any thread.
EthInterfaceMap readEthInterfaces();

} // namespace kor::veltrano::daemons

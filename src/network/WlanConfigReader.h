// Reads the wireless setup from the system's own files.
#pragma once

#include "network/WlanConfig.h"

namespace kor::veltrano::daemons {

// A stanza "iface wlan0" in the interfaces file (setting NetworkManager/legacyiface) makes the
// controller an access point, whose network is in hostapd's file (NetworkManager/hostapd); else the
// keyfile of NetworkManager/wlan0 tells of a client. Files that cannot be opened leave the fields
// as they are at first. Any thread.
WlanConfig readWlanConfig();

} // namespace kor::veltrano::daemons

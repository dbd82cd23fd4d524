// WlanConfigure: the controller's wireless network, as an access point or as a client.
//
// The twin of EthConfigure, with the script of the setting Scripts/configurewlan. All functions:
// any thread.
#pragma once

#include "network/NetworkScript.h"

#include <QByteArray>

namespace kor::veltrano::daemons {

class WlanConfigure : public NetworkScript
{
    Q_OBJECT

public:
    WlanConfigure();
};

extern WlanConfigure* wlanConfigure;

// The reply of /data/wlaninfo: what NetworkManager says of its connection "wlan".
QByteArray createWlanInfoData();

// The reply of /data/wlanconfig: an array of nine leaves, the passphrase in clear among them. A
// leaf's "tag" tells the browser when the leaf counts; the daemon does not read it back.
QByteArray createWlanConfigData();

// The write of /data/wlanconfig: an array as createWlanConfigData gives it, handed to the script;
// nothing is checked here. False where the body isn't JSON; true means that the script will be
// started.
bool writeWlanConfigData(const QByteArray& data);

// The reply of /data/wlanhwfound: an object whose "found" tells whether the file of the setting
// Scripts/wlan0available exists.
QByteArray createWlanHardwareData();

} // namespace kor::veltrano::daemons

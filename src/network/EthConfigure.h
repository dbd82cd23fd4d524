// EthConfigure: the controller's wired network, one interface with two aliases.
//
// The present setup is read from NetworkManager's own file; a new one goes as arguments to the
// script of the setting Scripts/configureeth. All functions: any thread.
#pragma once

#include "network/EthInterface.h"
#include "network/NetworkScript.h"

#include <QByteArray>
#include <QJsonObject>

namespace kor::veltrano::daemons {

class EthConfigure : public NetworkScript
{
    Q_OBJECT

public:
    EthConfigure();
};

extern EthConfigure* ethConfigure;

// The reply of /data/ethinfo: what NetworkManager says of its connection "eth0".
QByteArray createEthInfoData();

// The reply of /data/ethconfig: a tree of the interfaces "eth0", "eth0:1" and "eth0:2". A leaf's
// "tag" tells the browser when the leaf counts; the daemon does not read it back.
QByteArray createEthConfigData();

// The write of /data/ethconfig: a tree as createEthConfigData gives it, handed to the script;
// nothing is checked here. False where the body isn't JSON; true means that the script will be
// started.
bool writeEthConfigData(const QByteArray& data);

// One top node of the tree.
EthInterface parseEthInterface(const QJsonObject& node);

} // namespace kor::veltrano::daemons

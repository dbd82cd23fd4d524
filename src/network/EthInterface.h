// EthInterface: the setup of one wired interface.
#pragma once

#include <QMap>
#include <QString>

namespace kor::veltrano::daemons {

struct EthInterface {
    // Whether an alias is in use; without meaning for eth0 itself.
    bool enable = false;
    // "auto" or "manual"; only eth0's counts.
    QString method = QStringLiteral("manual");
    // Dotted IPv4 address.
    QString address;
    // Prefix length as decimal text.
    QString netmask;
    // Dotted IPv4 address.
    QString gateway;
    // As found; only eth0's counts.
    QString dns;
};

// By alias number: 0 is eth0, 1 is eth0:1, 2 is eth0:2.
using EthInterfaceMap = QMap<int, EthInterface>;

} // namespace kor::veltrano::daemons

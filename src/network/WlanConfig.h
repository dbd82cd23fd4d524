// WlanConfig: the setup of the wireless network.
#pragma once

#include <QString>

namespace kor::veltrano::daemons {

struct WlanConfig {
    // "master" for an access point, "client" for a member of a network, empty where nothing is
    // known.
    QString type;
    // "auto" or "manual".
    QString method = QStringLiteral("manual");
    // Dotted IPv4 address.
    QString address;
    // Prefix length as decimal text.
    QString netmask;
    // Dotted IPv4 address.
    QString gateway = QStringLiteral("0.0.0.0");
    // List of name servers; can be written, but is never read back.
    QString dns;
    // The network's name.
    QString ssid;
    // Pairwise cipher of an access point.
    QString cipher;
    // The passphrase, in clear.
    QString psk;
};

} // namespace kor::veltrano::daemons

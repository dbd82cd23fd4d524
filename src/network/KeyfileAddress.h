// KeyfileAddress: the value of an address line in a NetworkManager keyfile.
#pragma once

#include <QString>

namespace kor::veltrano::daemons {

struct KeyfileAddress {
    QString address;
    // Prefix length as decimal text.
    QString netmask;
    QString gateway;
};

// Takes "address/prefix,gateway" apart; without ",gateway" the gateway is "0.0.0.0". Text without
// a slash is the address and is then read once more for the rest. Any thread.
KeyfileAddress parseKeyfileAddress(QString text);

} // namespace kor::veltrano::daemons

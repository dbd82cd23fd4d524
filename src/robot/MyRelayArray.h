// MyRelayArray: the robot's 2 relays, which can be set but not read back.
#pragma once

#include "kor/veltrano/api2/RelayArray.h"

#include <QByteArray>

namespace kor::veltrano::daemons {

class MyRelayArray : public api2::RelayArray
{
public:
    // The write of /data/relayarray: a JSON array of 2 entries. False where it has another length;
    // true, with nothing done, where the body is no JSON. Any thread.
    bool setData(const QByteArray& data);
};

extern MyRelayArray* relayArray;

} // namespace kor::veltrano::daemons

// MyDigitalOutputArray: the robot's 8 digital outputs, which can be set but not read back.
#pragma once

#include "kor/veltrano/api2/DigitalOutputArray.h"

#include <QByteArray>

namespace kor::veltrano::daemons {

class MyDigitalOutputArray : public api2::DigitalOutputArray
{
public:
    // The write of /data/digitaloutputarray: a JSON array of 8 entries. False where it has another
    // length; true, with nothing done, where the body is no JSON. Any thread.
    bool setData(const QByteArray& data);
};

extern MyDigitalOutputArray* digitalOutputArray;

} // namespace kor::veltrano::daemons

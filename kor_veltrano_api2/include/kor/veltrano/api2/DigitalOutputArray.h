// DigitalOutputArray: the robot's digital outputs. They can be set but not read back.
#pragma once

namespace kor::veltrano::api2 {

class DigitalOutputArray
{
public:
    DigitalOutputArray();
    virtual ~DigitalOutputArray();
    DigitalOutputArray(const DigitalOutputArray&) = delete;
    DigitalOutputArray& operator=(const DigitalOutputArray&) = delete;

    // Sets the first count outputs to 0 or 1. Dropped while the connection is down. Any thread.
    void setValues(const int* values, unsigned int count);
};

} // namespace kor::veltrano::api2

// RelayArray: the robot's relays. They can be set but not read back.
#pragma once

namespace kor::veltrano::api2 {

class RelayArray
{
public:
    RelayArray();
    virtual ~RelayArray();
    RelayArray(const RelayArray&) = delete;
    RelayArray& operator=(const RelayArray&) = delete;

    // Sets the first count relays to 0 or 1. Dropped while the connection is down. Any thread.
    void setValues(const int* values, unsigned int count);
};

} // namespace kor::veltrano::api2

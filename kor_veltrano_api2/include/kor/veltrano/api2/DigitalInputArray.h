// DigitalInputArray: the robot's digital inputs.
#pragma once

namespace kor::veltrano::api2 {

class DigitalInputArray
{
public:
    DigitalInputArray();
    virtual ~DigitalInputArray();
    DigitalInputArray(const DigitalInputArray&) = delete;
    DigitalInputArray& operator=(const DigitalInputArray&) = delete;

    // An input has changed: count integers, above 0 where the input is on.
    virtual void valuesChangedEvent(const int* values, unsigned int count);

    static unsigned int numDigitalInputs();
    // Writes numDigitalInputs() integers: the last received, or 0. Any thread.
    void values(int* values) const;
};

} // namespace kor::veltrano::api2

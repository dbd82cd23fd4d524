// AnalogInputArray: the robot's analog inputs, in volts.
#pragma once

namespace kor::veltrano::api2 {

class AnalogInputArray
{
public:
    AnalogInputArray();
    virtual ~AnalogInputArray();
    AnalogInputArray(const AnalogInputArray&) = delete;
    AnalogInputArray& operator=(const AnalogInputArray&) = delete;

    // The inputs have been measured anew: count voltages in V.
    virtual void valuesChangedEvent(const float* values, unsigned int count);

    static unsigned int numAnalogInputs();
    // Writes numAnalogInputs() voltages in V: the last received, or 0. Any thread.
    void values(float* values) const;
};

} // namespace kor::veltrano::api2

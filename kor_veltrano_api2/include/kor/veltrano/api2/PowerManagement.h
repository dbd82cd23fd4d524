// PowerManagement: the robot's supply and battery. Getters answer on any thread.
#pragma once

namespace kor::veltrano::api2 {

class PowerManagement
{
public:
    PowerManagement();
    virtual ~PowerManagement();
    PowerManagement(const PowerManagement&) = delete;
    PowerManagement& operator=(const PowerManagement&) = delete;

    // New readings, in the units of the getters; batteryType is valid during the call.
    virtual void readingsEvent(float voltage, float current, bool extPower, int numChargers,
                               const char* batteryType, bool batteryLow,
                               int batteryLowShutdownCounter);

    // Battery voltage in V.
    float voltage() const;
    // True while the robot is fed from outside.
    bool ext_power() const;
    int num_chargers() const;
    // UTF-8 text; valid until the calling thread asks again.
    const char* batteryType() const;
    bool batteryLow() const;
    // Steps left until the robot shuts down for lack of power.
    int batteryLowShutdownCounter() const;
};

} // namespace kor::veltrano::api2

// Charger: one of the robot's two built-in chargers, chosen by number. Getters answer on any
// thread.
#pragma once

#include <atomic>

namespace kor::veltrano::api2 {

class Charger
{
public:
    Charger();
    virtual ~Charger();
    Charger(const Charger&) = delete;
    Charger& operator=(const Charger&) = delete;

    // New readings, in the units of the getters; state is valid during the call.
    virtual void chargerInfoChanged(unsigned int time, float batteryVoltage, float chargingCurrent,
                                    float bat1temp, float bat2temp, int stateNumber,
                                    const char* state);
    // The charger reports an error; message is valid during the call.
    virtual void chargerErrorChanged(unsigned int time, const char* message);
    // The version of the charger's firmware.
    virtual void chargerVersionChanged(int major, int minor, int patch);

    // Chooses the charger, 0 or 1, that this object stands for. Initially 0.
    void setChargerNumber(int number);
    // The number set, also when no such charger is attached.
    int chargerNumber() const;

    // The charger's clock, in its own unit.
    unsigned int time() const;
    // In V.
    float batteryVoltage() const;
    // In A.
    float chargingCurrent() const;
    // In degrees Celsius.
    float bat1temp() const;
    float bat2temp() const;
    int state_number() const;
    // UTF-8 text; valid until the calling thread asks again.
    const char* state() const;
    // Writes the three numbers of the firmware's version.
    void version(int* major, int* minor, int* patch) const;

private:
    std::atomic<int> ownNumber = 0;
};

} // namespace kor::veltrano::api2

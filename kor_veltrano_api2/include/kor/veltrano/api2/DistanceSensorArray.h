// DistanceSensorArray: the nine distance sensors around the robot, 40 degrees apart.
#pragma once

namespace kor::veltrano::api2 {

class DistanceSensorArray
{
public:
    DistanceSensorArray();
    virtual ~DistanceSensorArray();
    DistanceSensorArray(const DistanceSensorArray&) = delete;
    DistanceSensorArray& operator=(const DistanceSensorArray&) = delete;

    // The sensors have been read: count voltages in V, or count distances in m.
    virtual void voltagesChangedEvent(const float* voltages, unsigned int count);
    virtual void distancesChangedEvent(const float* distances, unsigned int count);

    // Writes 9 distances in m: the last received, or 0. Any thread.
    void distances(float* distances) const;
};

} // namespace kor::veltrano::api2

// LaserRangeFinderReadings: one scan, a value that owns its lists.
#pragma once

#include <vector>

namespace kor::veltrano::api2 {

class LaserRangeFinderReadings
{
public:
    int seq = 0;
    // When the scan was taken, in the robot's own clock.
    int stamp = 0;
    // Bearing of the first and the last ray, and the step between two, in rad.
    float angle_min = 0;
    float angle_max = 0;
    float angle_increment = 0;
    // Seconds between two rays, and between two scans.
    float time_increment = 0;
    float scan_time = 0;
    // Limits of a valid range in m.
    float range_min = 0;
    float range_max = 0;
    // One distance in m a ray.
    std::vector<float> ranges;
    // One strength of echo a ray, in the scanner's own unit; may be shorter or empty.
    std::vector<float> intensities;
};

} // namespace kor::veltrano::api2

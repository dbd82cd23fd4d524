// DeviceState: the last value received of each device, which is what the getters answer.
//
// A plain value inside the hub, which guards it with its lock. Images are not kept here but with
// the Camera objects, because each of them has its own.
#pragma once

#include "Events.h"

#include <array>
#include <memory>

namespace kor::veltrano::api2::detail {

struct DeviceState {
    AnalogValues analogInputs;
    DigitalValues digitalInputs;
    Distances distances;
    BumperState bumper;
    PowerReadings power;
    std::array<ChargerInfo, chargerCount> chargers;
    std::array<ChargerVersion, chargerCount> chargerVersions;
    // Null before the first scan.
    std::shared_ptr<const LaserRangeFinderReadings> scan;

    // Keeps what a getter can ask for; all other events leave no trace.
    void store(const Event& event);
};

} // namespace kor::veltrano::api2::detail

// CameraSlot: what the hub keeps for one Camera object, guarded by the hub's lock.
#pragma once

#include "Events.h"
#include "Subscription.h"

#include <optional>

namespace kor::veltrano::api2::detail {

struct CameraSlot : Binding {
    // The newest image, from its arrival until it is fetched or the object is detached.
    std::optional<CameraImage> image;
    unsigned int imagesReceived = 0;
    bool decodesJpeg = true;
};

} // namespace kor::veltrano::api2::detail

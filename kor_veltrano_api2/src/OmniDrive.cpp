#include "kor/veltrano/api2/OmniDrive.h"

#include "Library.h"

#include <cmath>

namespace kor::veltrano::api2 {

// The drive sends no event over this connection, so its objects need not be known.
OmniDrive::OmniDrive() = default;

OmniDrive::~OmniDrive() = default;

void OmniDrive::driveLayoutChangedEvent(double, double, double, double, double) { }

void OmniDrive::setVelocity(float vx, float vy, float omega)
{
    // JSON has no way to write these, and no drive a way to obey them.
    if (!std::isfinite(vx) || !std::isfinite(vy) || !std::isfinite(omega)) {
        return;
    }
    detail::library().hub.sendCommand(QStringLiteral("omniDrive.setVelocity"),
                                      {{QStringLiteral("vx"), static_cast<double>(vx)},
                                       {QStringLiteral("vy"), static_cast<double>(vy)},
                                       {QStringLiteral("omega"), static_cast<double>(omega)}});
}

} // namespace kor::veltrano::api2

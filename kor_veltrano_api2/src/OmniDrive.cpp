#include "kor/veltrano/api2/OmniDrive.h"

#include "Library.h"

#include <QByteArray>
#include <QLocale>

#include <cmath>

namespace kor::veltrano::api2 {

namespace {

// The shortest text that reads back as the same number.
QByteArray number(float value)
{
    return QByteArray::number(static_cast<double>(value), 'g', QLocale::FloatingPointShortest);
}

} // namespace

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
    detail::library().hub.sendCommand(QByteArrayLiteral("omniDrive.setVelocity"),
                                      R"({"omega":)" + number(omega) + R"(,"vx":)" + number(vx)
                                          + R"(,"vy":)" + number(vy) + "}");
}

} // namespace kor::veltrano::api2

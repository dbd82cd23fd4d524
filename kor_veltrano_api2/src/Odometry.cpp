#include "kor/veltrano/api2/Odometry.h"

#include "Library.h"

namespace kor::veltrano::api2 {

Odometry::Odometry()
{
    detail::library().roster.add(this);
}

Odometry::~Odometry()
{
    detail::library().roster.remove(this);
}

void Odometry::readingsEvent(double, double, double, float, float, float, int) { }

void Odometry::mapFrameCoordinatesEvent(double, double, double) { }

void Odometry::mapImagePixelCoordinatesEvent(int, int, double) { }

} // namespace kor::veltrano::api2

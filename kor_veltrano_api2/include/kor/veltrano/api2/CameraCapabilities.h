// CameraCapabilities: what a camera can do. Nothing of it travels over this connection.
#pragma once

namespace kor::veltrano::api2 {

class CameraCapabilities
{
};

} // namespace kor::veltrano::api2

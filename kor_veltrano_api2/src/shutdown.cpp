#include "kor/veltrano/api2/shutdown.h"

#include "Library.h"

namespace kor::veltrano::api2 {

void shutdown()
{
    detail::library().link.shutdown();
}

} // namespace kor::veltrano::api2

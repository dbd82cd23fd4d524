#include "Library.h"

namespace kor::veltrano::api2::detail {

Library& library()
{
    static auto* const instance = new Library;
    return *instance;
}

} // namespace kor::veltrano::api2::detail

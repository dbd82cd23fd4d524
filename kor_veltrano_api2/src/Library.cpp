#include "Library.h"

namespace kor::veltrano::api2::detail {

Library& library()
{
    static Library* const instance = new Library;
    return *instance;
}

} // namespace kor::veltrano::api2::detail

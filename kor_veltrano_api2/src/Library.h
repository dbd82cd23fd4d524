// Library: the parts of the library that exist once in the process.
//
// They are made at the first use and never destroyed, because objects of the public classes may
// live in static variables that outlast any other.
#pragma once

#include "Hub.h"
#include "Link.h"
#include "Roster.h"
#include "Wakeup.h"

namespace kor::veltrano::api2::detail {

struct Library {
    Wakeup wakeup;
    Roster roster;
    Hub hub{wakeup};
    Link link{hub, wakeup};
};

// Any thread.
Library& library();

} // namespace kor::veltrano::api2::detail

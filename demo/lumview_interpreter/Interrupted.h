// Interrupted: thrown on the program's thread when a signal has asked for the program's end.
#pragma once

namespace kor::veltrano::lumview {

struct Interrupted {
    // Such as SIGTERM.
    int signal = 0;
};

} // namespace kor::veltrano::lumview

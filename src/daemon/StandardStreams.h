// What a process must have in order before it opens its first file or socket. Called by main,
// first.
#pragma once

namespace kor::veltrano::daemons {

// Ignores SIGPIPE, so that a reader of standard output that goes away does not end the daemon, and
// opens /dev/null where standard input, output or error is closed, so that no socket gets their
// numbers and no console text goes into it.
void prepareStandardStreams();

} // namespace kor::veltrano::daemons

// The HTTP library's listening socket, which it keeps to itself.
#pragma once

namespace kor::veltrano::daemons {

// Puts a socket that never gets a connection in the place of this process's TCP socket that listens
// on the port, under the same descriptor: the port goes away, and the library, which still owns the
// descriptor, waits in peace. False where there is no such socket or the system has no such means.
bool silenceListeningSocket(int port);

} // namespace kor::veltrano::daemons

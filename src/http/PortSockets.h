// The TCP sockets of the HTTP port, which the library keeps to itself, found by their port among
// the process's descriptors. The library crashes when connections come or work while it closes its
// listener; these quieten them first, from outside. Main thread, once the gate is closed.
#pragma once

#include <chrono>
#include <set>

namespace kor::veltrano::daemons {

// The ports that this process listens on for TCP connections.
std::set<int> listeningPorts();

// Puts a socket that never gets a connection in the place of the one that listens on the port,
// under the same descriptor: the port goes away, and the library, which still owns the descriptor,
// waits in peace. False where there is no such socket or the system has no such means.
bool silenceListeningSocket(int port);

// Takes no more requests from the clients of the port and returns when the library has closed all
// their connections; replies that are on their way are sent. After the grace the rest are cut off.
// False where connections remain even then.
bool endConnections(int port, std::chrono::milliseconds grace);

} // namespace kor::veltrano::daemons

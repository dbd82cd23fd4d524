// The life of the HTTP port. Called by main alone, on the main thread.
#pragma once

#include <QString>

namespace kor::veltrano::daemons {

// Builds listenerHandler and opens its port. The address is a URI, such as http://127.0.0.1:8080. A
// failure is printed on standard output and leaves the daemon without a listener.
void startListener(const QString& address);

// Answers every request as an unknown path from now on; returns when the requests inside have
// ended. Does nothing without a listener.
void refuseRequests();

// Closes the port and waits for the replies that are still on their way. Does nothing without a
// listener.
void closeListener();

} // namespace kor::veltrano::daemons

// shutdown(): ends the library's work.
#pragma once

namespace kor::veltrano::api2 {

// Ends the connection and the socket's thread and returns when both have ended. May be called
// twice, and without any connection. A later connectToServer() starts anew.
void shutdown();

} // namespace kor::veltrano::api2

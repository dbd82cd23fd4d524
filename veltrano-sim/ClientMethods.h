// The control door's methods that deal with the robot's clients: what is sent to them beside the
// simulation's own events, and what their connections shall do badly.
#pragma once

namespace kor::veltrano::sim {

class ControlMethods;
class RpcServer;

// The server must outlive the methods.
void addClientMethods(ControlMethods& methods, RpcServer& server);

} // namespace kor::veltrano::sim

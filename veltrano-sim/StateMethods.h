// The control door's methods that show and set the simulated robot: state.get, state.set and
// state.release.
#pragma once

namespace kor::veltrano::sim {

class ControlMethods;
class RpcServer;
class Simulation;

// The simulation and the server must outlive the methods.
void addStateMethods(ControlMethods& methods, Simulation& simulation, RpcServer& server);

} // namespace kor::veltrano::sim

// The control door's methods that tell what clients have commanded: commands.list and
// commands.clear.
#pragma once

namespace kor::veltrano::sim {

class CommandLog;
class ControlMethods;

// The log must outlive the methods.
void addCommandMethods(ControlMethods& methods, CommandLog& log);

} // namespace kor::veltrano::sim

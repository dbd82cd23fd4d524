#include "ControlHelp.h"

namespace kor::veltrano::sim {

QString controlHelp()
{
    return QStringLiteral(R"(
Methods of the control door (JSON-RPC 2.0, one message a line; docs/simulator.md has examples):
  state.get {}                                  everything about the robot
  state.set {"<member>": value, ...}            sets members of state.get; simulated ones are held
  state.release {"devices": [...]}              lets held members go on; without devices, all
  commands.list {"since": n}                    what clients have commanded, from index n on
  commands.clear {}                             forgets it
  clients.list {}                               connections, subscriptions, answers, faults
  clients.sendEvent {"method", "params"}        sends a notification to all clients, as given
  clients.sendRequest {"method", "params", "id"}
                                                sends a request to all clients
  clients.sendRaw {"text" or "base64", "repeat": n}
                                                sends bytes to all clients
  clients.drop {"forMs": n}                     ends all connections, refuses new ones for a while
  clients.delay {"ms": n}                       keeps messages back in both directions
  clients.lose {"probability": p}               loses events
  clients.mute {"on": true or false}            sends nothing at all
  clients.protocol {"version": n}               answers hello with this protocol
  sim.quit {}                                   ends the program
)");
}

} // namespace kor::veltrano::sim

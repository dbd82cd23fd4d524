// The control door's page of the program's help.
#pragma once

#include <QString>

namespace kor::veltrano::sim {

// A line for each method with its params and what it does.
QString controlHelp();

} // namespace kor::veltrano::sim

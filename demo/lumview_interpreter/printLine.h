// How the interpreter prints: whole lines, each in one write.
#pragma once

#include <string>

namespace kor::veltrano::lumview {

// Writes a line and its end to standard output, which keeps nothing back. The daemon reads pieces
// as they come and takes each for a whole line, so a line must not arrive in two. Throws a Problem
// when nobody reads.
void printLine(const std::string& line);

} // namespace kor::veltrano::lumview

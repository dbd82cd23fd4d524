// Problem: why a program can't be run, or can't be run on, in words for who wrote it.
//
// Thrown where the reason is found. The parser and the executor know the line and add it; main
// prints both.
#pragma once

#include <stdexcept>
#include <string>

namespace kor::veltrano::lumview {

class Problem : public std::runtime_error
{
public:
    explicit Problem(const std::string& text) : std::runtime_error(text) { }

    // The line of the program, from 1 on; 0 where it is not known yet.
    int line() const { return lineNumber; }
    // Tells the line, unless that has been told closer to the reason.
    void setLine(int number) { lineNumber = lineNumber == 0 ? number : lineNumber; }

private:
    int lineNumber = 0;
};

} // namespace kor::veltrano::lumview

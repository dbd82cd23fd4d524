// Parser: reads a whole program and finds all mistakes of its form before it runs.
//
// Created by main for one text. It gives lines to a LineParser and builds the blocks of them.
#pragma once

#include "Names.h"
#include "Statement.h"
#include "TokenReader.h"

#include <optional>
#include <string>
#include <vector>

namespace kor::veltrano::lumview {

class Parser
{
public:
    // The text of a program's file, in UTF-8, with line ends of any kind.
    explicit Parser(const std::string& text);

    // The program; throws the first Problem, with its line.
    Program program();

private:
    // The statements up to a line that begins with "end" or "else", or to the program's end.
    std::vector<Statement> block(int depth);
    void readStatement(std::vector<Statement>& statements, int depth);
    // What follows the first line of a loop or a condition, up to its "end".
    void readBlocks(Statement& opener, int depth);
    // What follows an "else"; false where that is another condition, which has taken the "end".
    bool readElse(Statement& opener, int depth);
    // Moves to the next line that isn't empty; false at the program's end.
    bool nextLine();

    std::vector<std::string> lines;
    int lineNumber = 0;
    // The line to be read, nothing at the program's end.
    std::optional<TokenReader> reader;
    Names names;
};

} // namespace kor::veltrano::lumview

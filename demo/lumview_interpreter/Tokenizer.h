// Tokenizer: cuts a line of a program into tokens.
#pragma once

#include "Token.h"

#include <string>
#include <vector>

namespace kor::veltrano::lumview {

class Tokenizer
{
public:
    explicit Tokenizer(std::string programLine) : line(std::move(programLine)) { }

    // The line's tokens without its comment; the last one is of the kind End. Throws a Problem for
    // a character that means nothing, a text without its end, or a line beyond 1000 characters.
    std::vector<Token> tokens();

private:
    Token next();
    Token number();
    Token text();
    Token word();
    Token symbol();

    std::string line;
    std::size_t position = 0;
};

} // namespace kor::veltrano::lumview

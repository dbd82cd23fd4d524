// Token: a word of a program's line as the parser sees it.
#pragma once

#include <string>

namespace kor::veltrano::lumview {

struct Token {
    enum class Kind { Number, Text, Word, Symbol, End };

    Kind kind = Kind::End;
    // As it was written, a text without its quotes.
    std::string text;
    double number = 0;
};

} // namespace kor::veltrano::lumview

#include "Names.h"

namespace kor::veltrano::lumview {

bool Names::isReserved(const std::string& word)
{
    static const std::set<std::string> words{"print", "set",   "wait", "repeat", "times", "while",
                                             "do",    "if",    "then", "else",   "end",   "and",
                                             "or",    "drive", "for",  "read",   "into",  "pi"};
    return words.count(word) != 0 || isFunction(word);
}

bool Names::isFunction(const std::string& word)
{
    static const std::set<std::string> functions{"abs", "round", "sqrt", "sin", "cos", "angle"};
    return functions.count(word) != 0;
}

} // namespace kor::veltrano::lumview

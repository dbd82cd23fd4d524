// Names: the variables that the lines read so far give a value to, and the words that name none.
//
// The parser fills it from the first line to the last, so that a name that was never given a value
// is found before the program runs.
#pragma once

#include <set>
#include <string>

namespace kor::veltrano::lumview {

class Names
{
public:
    // Remembers a variable that gets a value.
    void add(const std::string& name) { variables.insert(name); }
    bool contains(const std::string& name) const { return variables.count(name) != 0; }

    // Whether the word belongs to the language and can't name a variable.
    static bool isReserved(const std::string& word);
    static bool isFunction(const std::string& word);

private:
    std::set<std::string> variables;
};

} // namespace kor::veltrano::lumview

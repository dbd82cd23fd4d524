// Variables: the values of a program's variables, and when they are told to the outside.
//
// Created by main for one run. Without an interval each change is told at once, else those that
// have changed are told together, once an interval.
#pragma once

#include "Clock.h"
#include "Value.h"

#include <functional>
#include <map>
#include <set>
#include <string>

namespace kor::veltrano::lumview {

class Variables
{
public:
    using Print = std::function<void(const std::string& line)>;

    // An interval of 0 tells each change at once; a longer one begins now.
    Variables(Print printLine, std::chrono::milliseconds tellInterval, Clock::Time now);

    void set(const std::string& name, const Value& value);
    // The variable's value, nullptr as long as it has none.
    const Value* find(const std::string& name) const;

    // Tells the changes if their time has come.
    void tellWhenDue(Clock::Time now);
    // Tells what has changed since that was told last.
    void tellChanges();
    // When tellWhenDue() has something to do next; the end of time without an interval.
    Clock::Time nextDue() const { return due; }

private:
    Print print;
    std::chrono::milliseconds interval;
    Clock::Time due;
    std::map<std::string, Value> values;
    std::set<std::string> changed;
};

} // namespace kor::veltrano::lumview

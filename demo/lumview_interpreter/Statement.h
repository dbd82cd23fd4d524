// Statement: a command of a program with its parts; loops and conditions hold those inside them.
#pragma once

#include "Expression.h"
#include "Sensor.h"

#include <string>
#include <vector>

namespace kor::veltrano::lumview {

struct Statement {
    enum class Action { Print, Set, Wait, Drive, Read, Repeat, While, If };

    Action action = Action::Print;
    // Where it stands in the program's file, from 1 on.
    int line = 0;
    // In the order in which they are written. A reading has one, the number of the sensor.
    std::vector<Expression> expressions;
    // The variable of Set and Read.
    std::string name;
    Sensor sensor = Sensor::Bumper;
    // What is repeated, or done where the condition holds, and what is done where it doesn't.
    std::vector<Statement> block;
    std::vector<Statement> otherwise;
};

using Program = std::vector<Statement>;

} // namespace kor::veltrano::lumview

// Expression: a calculation or a comparison, as a tree of operations.
#pragma once

#include "Value.h"

#include <string>
#include <vector>

namespace kor::veltrano::lumview {

struct Expression {
    enum class Operation {
        Constant,
        Variable,
        Call,
        Negate,
        Add,
        Subtract,
        Multiply,
        Divide,
        Equal,
        NotEqual,
        Less,
        LessOrEqual,
        Greater,
        GreaterOrEqual,
        And,
        Or
    };

    Operation operation = Operation::Constant;
    Value value;
    // That of the variable or of the function that is called.
    std::string name;
    std::vector<Expression> operands;
};

} // namespace kor::veltrano::lumview

// Evaluator: works out calculations and comparisons with the values that the variables have now.
#pragma once

#include "Expression.h"
#include "Variables.h"

namespace kor::veltrano::lumview {

class Evaluator
{
public:
    // The variables must outlive this.
    explicit Evaluator(const Variables& values) : variables(values) { }

    // All three throw a Problem for what can't be worked out, as a division by zero.
    Value value(const Expression& calculation) const;
    // The same where only a number makes sense.
    double number(const Expression& calculation) const;
    bool holds(const Expression& condition) const;

private:
    const Value& variable(const std::string& name) const;
    Value arithmetic(const Expression& calculation) const;

    const Variables& variables;
};

} // namespace kor::veltrano::lumview

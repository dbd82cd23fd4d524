#include "Evaluator.h"

#include "Problem.h"

#include <cmath>

namespace kor::veltrano::lumview {

namespace {

using Operation = Expression::Operation;

// Texts of a doubled doubling would soon fill the memory.
constexpr std::size_t longestText = 10000;

constexpr double fullTurn = 2 * 3.14159265358979323846;

double checked(double number)
{
    if (!std::isfinite(number)) {
        throw Problem("the result of this calculation is too large");
    }
    return number;
}

double quotient(double left, double right)
{
    if (right == 0) {
        throw Problem("expected a number other than 0 to divide by");
    }
    return left / right;
}

Value joinedText(const Value& left, const Value& right)
{
    const std::string text = left.text() + right.text();
    if (text.size() > longestText) {
        throw Problem("expected texts of at most " + std::to_string(longestText) + " characters");
    }
    return Value(text);
}

double call(const std::string& function, double number)
{
    if (function == "abs") {
        return std::abs(number);
    }
    if (function == "round") {
        return std::round(number);
    }
    if (function == "sin") {
        return std::sin(number);
    }
    if (function == "cos") {
        return std::cos(number);
    }
    if (function == "angle") {
        return std::remainder(number, fullTurn);
    }
    if (number < 0) {
        throw Problem("expected a number of 0 or above for sqrt, but found "
                      + Value(number).text());
    }
    return std::sqrt(number);
}

bool compareNumbers(Operation operation, double left, double right)
{
    switch (operation) {
    case Operation::Less:
        return left < right;
    case Operation::LessOrEqual:
        return left <= right;
    case Operation::Greater:
        return left > right;
    default:
        return left >= right;
    }
}

bool compare(Operation operation, const Value& left, const Value& right)
{
    if (operation != Operation::Equal && operation != Operation::NotEqual) {
        return compareNumbers(operation, left.number(), right.number());
    }
    if (left.isNumber() != right.isNumber()) {
        const Value& text = left.isNumber() ? right : left;
        const Value& number = left.isNumber() ? left : right;
        throw Problem("expected two numbers or two texts to compare, but found the text \""
                      + text.text() + "\" and the number " + number.text());
    }
    return (left == right) == (operation == Operation::Equal);
}

} // namespace

Value Evaluator::value(const Expression& calculation) const
{
    switch (calculation.operation) {
    case Operation::Constant:
        return calculation.value;
    case Operation::Variable:
        return variable(calculation.name);
    case Operation::Call:
        return Value(call(calculation.name, number(calculation.operands.front())));
    case Operation::Negate:
        return Value(-number(calculation.operands.front()));
    default:
        return arithmetic(calculation);
    }
}

double Evaluator::number(const Expression& calculation) const
{
    return value(calculation).number();
}

const Value& Evaluator::variable(const std::string& name) const
{
    const Value* found = variables.find(name);
    if (found == nullptr) {
        throw Problem("the variable \"" + name
                      + "\" has no value yet, as the line that gives it "
                        "one was not reached");
    }
    return *found;
}

Value Evaluator::arithmetic(const Expression& calculation) const
{
    const Value left = value(calculation.operands.front());
    const Value right = value(calculation.operands.back());
    switch (calculation.operation) {
    case Operation::Add:
        return left.isNumber() && right.isNumber() ? Value(checked(left.number() + right.number()))
                                                   : joinedText(left, right);
    case Operation::Subtract:
        return Value(checked(left.number() - right.number()));
    case Operation::Multiply:
        return Value(checked(left.number() * right.number()));
    default:
        return Value(checked(quotient(left.number(), right.number())));
    }
}

bool Evaluator::holds(const Expression& condition) const
{
    const Expression& left = condition.operands.front();
    const Expression& right = condition.operands.back();
    switch (condition.operation) {
    case Operation::And:
        return holds(left) && holds(right);
    case Operation::Or:
        return holds(left) || holds(right);
    default:
        return compare(condition.operation, value(left), value(right));
    }
}

} // namespace kor::veltrano::lumview

#include "ExpressionParser.h"

#include "Problem.h"

namespace kor::veltrano::lumview {

namespace {

using Operation = Expression::Operation;

constexpr double pi = 3.14159265358979323846;

Expression join(Operation operation, Expression left, Expression right)
{
    Expression joined;
    joined.operation = operation;
    joined.operands.push_back(std::move(left));
    joined.operands.push_back(std::move(right));
    return joined;
}

Expression constant(Value value)
{
    Expression expression;
    expression.value = std::move(value);
    return expression;
}

} // namespace

Expression ExpressionParser::calculation()
{
    Expression left = product();
    while (true) {
        if (reader.takeIf("+")) {
            left = join(Operation::Add, std::move(left), product());
        } else if (reader.takeIf("-")) {
            left = join(Operation::Subtract, std::move(left), product());
        } else {
            return left;
        }
    }
}

Expression ExpressionParser::product()
{
    Expression left = operand();
    while (true) {
        if (reader.takeIf("*")) {
            left = join(Operation::Multiply, std::move(left), operand());
        } else if (reader.takeIf("/")) {
            left = join(Operation::Divide, std::move(left), operand());
        } else {
            return left;
        }
    }
}

Expression ExpressionParser::operand()
{
    if (!reader.takeIf("-")) {
        return plainOperand();
    }
    Expression negation;
    negation.operation = Operation::Negate;
    negation.operands.push_back(plainOperand());
    return negation;
}

Expression ExpressionParser::plainOperand()
{
    switch (reader.peek().kind) {
    case Token::Kind::Number:
        return constant(Value(reader.take().number));
    case Token::Kind::Text:
        return constant(Value(reader.take().text));
    case Token::Kind::Word:
        return Names::isFunction(reader.peek().text) ? call() : named();
    case Token::Kind::Symbol:
    case Token::Kind::End:
        break;
    }
    return inParentheses();
}

Expression ExpressionParser::call()
{
    Expression expression;
    expression.operation = Operation::Call;
    expression.name = reader.take().text;
    if (reader.peek().text != "(") {
        reader.refuse("\"(\" after " + expression.name);
    }
    expression.operands.push_back(inParentheses());
    return expression;
}

Expression ExpressionParser::inParentheses()
{
    if (!reader.takeIf("(")) {
        reader.refuse("a number, a text in \"quotes\", a variable or a calculation in parentheses");
    }
    Expression inner = calculation();
    reader.expect(")", "after the calculation");
    return inner;
}

Expression ExpressionParser::named()
{
    const std::string& word = reader.peek().text;
    if (word == "pi") {
        reader.take();
        return constant(Value(pi));
    }
    if (Names::isReserved(word)) {
        reader.refuse("a number, a text in \"quotes\" or a variable");
    }
    if (!names.contains(word)) {
        throw Problem("the variable \"" + word
                      + "\" has no value yet; expected a line above that "
                        "gives it one, as: set "
                      + word + " = 0");
    }
    Expression variable;
    variable.operation = Operation::Variable;
    variable.name = reader.take().text;
    return variable;
}

Expression ExpressionParser::condition()
{
    Expression left = conjunction();
    while (reader.takeIf("or")) {
        left = join(Operation::Or, std::move(left), conjunction());
    }
    return left;
}

Expression ExpressionParser::conjunction()
{
    Expression left = comparison();
    while (reader.takeIf("and")) {
        left = join(Operation::And, std::move(left), comparison());
    }
    return left;
}

Expression ExpressionParser::comparison()
{
    static constexpr std::pair<const char*, Operation> comparisons[] = {
        {"=", Operation::Equal},          {"==", Operation::Equal},
        {"!=", Operation::NotEqual},      {"<", Operation::Less},
        {"<=", Operation::LessOrEqual},   {">", Operation::Greater},
        {">=", Operation::GreaterOrEqual}};
    Expression left = calculation();
    for (const auto& [symbol, operation] : comparisons) {
        if (reader.takeIf(symbol)) {
            return join(operation, std::move(left), calculation());
        }
    }
    reader.refuse("a comparison (one of = != < <= > >=)");
}

} // namespace kor::veltrano::lumview

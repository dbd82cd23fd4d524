// ExpressionParser: reads calculations and comparisons from a line.
//
// Created by whoever reads the line, for as long as that takes; it moves the caller's reader on.
// From weak to strong: or, and, a comparison, + and -, * and /, a sign.
#pragma once

#include "Expression.h"
#include "Names.h"
#include "TokenReader.h"

namespace kor::veltrano::lumview {

class ExpressionParser
{
public:
    ExpressionParser(TokenReader& line, const Names& knownNames) : reader(line), names(knownNames)
    {
    }

    // All three throw a Problem that says what was expected.
    // A calculation, as a * 2 + 1.
    Expression calculation();
    // A number, a variable, a function or something in parentheses, with or without a sign, for
    // places where several stand side by side.
    Expression operand();
    // Comparisons, joined by "and" and "or".
    Expression condition();

private:
    Expression conjunction();
    Expression comparison();
    Expression product();
    Expression plainOperand();
    Expression call();
    Expression inParentheses();
    Expression named();

    TokenReader& reader;
    const Names& names;
};

} // namespace kor::veltrano::lumview

// LineParser: reads the command of one line, without the lines of the blocks that it may open.
#pragma once

#include "ExpressionParser.h"
#include "Names.h"
#include "Statement.h"
#include "TokenReader.h"

namespace kor::veltrano::lumview {

class LineParser
{
public:
    // Names that the line gives a value to are added; both must outlive this.
    LineParser(TokenReader& line, Names& knownNames)
        : reader(line), names(knownNames), expressions(line, knownNames)
    {
    }

    // The command up to the end of the line; throws a Problem that says what was expected.
    Statement statement();

private:
    using Action = Statement::Action;

    Statement print();
    Statement set();
    Statement wait();
    Statement drive();
    Statement read();
    Statement repeat();
    // "while" and "if", whose line may end with a word of politeness.
    Statement conditional(Action action, const char* lastWord);

    // Which sensor is read: its kind and the expression of its number.
    void chooseSensor(Statement& reading);
    std::string newName();
    [[noreturn]] void refuseCommand(const Token& first) const;

    TokenReader& reader;
    Names& names;
    ExpressionParser expressions;
};

} // namespace kor::veltrano::lumview

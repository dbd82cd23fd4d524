#include "LineParser.h"

#include "Problem.h"

namespace kor::veltrano::lumview {

namespace {

Statement statementOf(Statement::Action action)
{
    Statement statement;
    statement.action = action;
    return statement;
}

} // namespace

Statement LineParser::statement()
{
    const Token first = reader.peek();
    Statement statement;
    if (reader.takeIf("print")) {
        statement = print();
    } else if (reader.takeIf("set")) {
        statement = set();
    } else if (reader.takeIf("wait")) {
        statement = wait();
    } else if (reader.takeIf("drive")) {
        statement = drive();
    } else if (reader.takeIf("read")) {
        statement = read();
    } else if (reader.takeIf("repeat")) {
        statement = repeat();
    } else if (reader.takeIf("while")) {
        statement = conditional(Action::While, "do");
    } else if (reader.takeIf("if")) {
        statement = conditional(Action::If, "then");
    } else {
        refuseCommand(first);
    }
    reader.expectEnd();
    return statement;
}

void LineParser::refuseCommand(const Token& first) const
{
    if (first.kind == Token::Kind::Word && names.contains(first.text)) {
        throw Problem("expected \"set\" before the variable, as: set " + first.text + " = 1");
    }
    reader.refuse("a command (print, set, wait, repeat, while, if, else, end, drive or read)");
}

Statement LineParser::print()
{
    Statement statement = statementOf(Action::Print);
    do {
        statement.expressions.push_back(expressions.calculation());
    } while (reader.takeIf(","));
    return statement;
}

Statement LineParser::set()
{
    Statement statement = statementOf(Action::Set);
    statement.name = newName();
    reader.expect("=", "after the variable's name");
    statement.expressions.push_back(expressions.calculation());
    // Only now, as a first value can't be made of itself.
    names.add(statement.name);
    return statement;
}

Statement LineParser::wait()
{
    Statement statement = statementOf(Action::Wait);
    statement.expressions.push_back(expressions.calculation());
    return statement;
}

Statement LineParser::drive()
{
    Statement statement = statementOf(Action::Drive);
    for (const char* next : {"vy", "omega", ""}) {
        statement.expressions.push_back(expressions.operand());
        const bool isCalculation = reader.peek().kind == Token::Kind::Symbol
            && reader.peek().text != "," && reader.peek().text != "(" && reader.peek().text != "-";
        if (isCalculation) {
            reader.refuse("calculations of a speed to stand in parentheses");
        }
        if (*next != '\0') {
            reader.takeIf(",");
        }
    }
    reader.expect("for", "and the seconds after the three speeds, as: drive 0.2 0 0 for 1.5");
    statement.expressions.push_back(expressions.calculation());
    return statement;
}

Statement LineParser::read()
{
    Statement statement = statementOf(Action::Read);
    chooseSensor(statement);
    const Expression& number = statement.expressions.front();
    if (number.operation == Expression::Operation::Constant) {
        checkNumber(statement.sensor, number.value.number());
    }
    reader.expect("into", "and a variable after the sensor");
    statement.name = newName();
    names.add(statement.name);
    return statement;
}

void LineParser::chooseSensor(Statement& reading)
{
    if (reader.takeIf("bumper")) {
        reading.sensor = Sensor::Bumper;
        reading.expressions.emplace_back();
    } else if (reader.takeIf("odometry")) {
        reading.sensor = Sensor::Odometry;
        const int number = odometryNumber(reader.peek().text);
        if (number < 0) {
            reader.refuse("x, y, phi, vx, vy or omega after \"odometry\"");
        }
        reader.take();
        reading.expressions.emplace_back().value = Value(double(number));
    } else {
        if (reader.takeIf("distance")) {
            reading.sensor = Sensor::Distance;
        } else if (reader.takeIf("analog")) {
            reading.sensor = Sensor::Analog;
        } else if (reader.takeIf("digital")) {
            reading.sensor = Sensor::Digital;
        } else {
            reader.refuse("a sensor (odometry, distance, bumper, analog or digital)");
        }
        reading.expressions.push_back(expressions.operand());
    }
}

Statement LineParser::repeat()
{
    Statement statement = statementOf(Action::Repeat);
    statement.expressions.push_back(expressions.calculation());
    reader.takeIf("times");
    return statement;
}

Statement LineParser::conditional(Action action, const char* lastWord)
{
    Statement statement = statementOf(action);
    statement.expressions.push_back(expressions.condition());
    reader.takeIf(lastWord);
    return statement;
}

std::string LineParser::newName()
{
    if (reader.peek().kind != Token::Kind::Word) {
        reader.refuse("the name of a variable");
    }
    if (Names::isReserved(reader.peek().text)) {
        reader.refuse("the name of a variable, which is no word of the language");
    }
    return reader.take().text;
}

} // namespace kor::veltrano::lumview

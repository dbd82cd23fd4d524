#include "Executor.h"

#include "Problem.h"

#include <algorithm>
#include <cmath>

namespace kor::veltrano::lumview {

namespace {

constexpr std::chrono::milliseconds driveInterval(100);
constexpr double longestPauseS = 86400;

} // namespace

Executor::Executor(Robot& drivenRobot, Clock& givenClock, Variables& values,
                   Variables::Print printLine)
    : robot(drivenRobot),
      clock(givenClock),
      variables(values),
      print(std::move(printLine)),
      evaluator(values)
{
}

void Executor::run(const Program& program)
{
    try {
        runBlock(program);
    } catch (...) {
        variables.tellChanges();
        throw;
    }
    variables.tellChanges();
}

void Executor::runBlock(const std::vector<Statement>& statements)
{
    for (const Statement& statement : statements) {
        try {
            // A loop without a pause must be heard of and be ended like any other.
            pauseUntil(clock.now());
            runStatement(statement);
        } catch (Problem& problem) {
            problem.setLine(statement.line);
            throw;
        }
    }
}

void Executor::runStatement(const Statement& statement)
{
    switch (statement.action) {
    case Statement::Action::Print:
        print(lineOf(statement.expressions));
        break;
    case Statement::Action::Set:
        variables.set(statement.name, evaluator.value(statement.expressions.front()));
        break;
    case Statement::Action::Wait:
        pauseUntil(after(statement.expressions.front()));
        break;
    case Statement::Action::Drive:
        runDrive(statement);
        break;
    case Statement::Action::Read:
        runRead(statement);
        break;
    case Statement::Action::Repeat:
        runRepeat(statement);
        break;
    case Statement::Action::While:
        while (evaluator.holds(statement.expressions.front())) {
            pauseUntil(clock.now());
            runBlock(statement.block);
        }
        break;
    case Statement::Action::If:
        runBlock(evaluator.holds(statement.expressions.front()) ? statement.block
                                                                : statement.otherwise);
        break;
    }
}

void Executor::runRepeat(const Statement& statement)
{
    const double times = evaluator.number(statement.expressions.front());
    if (times < 0 || times != std::floor(times)) {
        throw Problem("expected how often to repeat, a whole number of 0 or above, but found "
                      + Value(times).text());
    }
    for (double done = 0; done < times; ++done) {
        pauseUntil(clock.now());
        runBlock(statement.block);
    }
}

void Executor::runDrive(const Statement& statement)
{
    const Clock::Time end = after(statement.expressions.back());
    try {
        driveUntil(statement, end);
    } catch (...) {
        try {
            robot.drive(0, 0, 0);
        } catch (const Problem&) {
            // The first reason is the one to tell, and the daemon stops the robot by itself.
        }
        throw;
    }
    robot.drive(0, 0, 0);
}

void Executor::driveUntil(const Statement& statement, Clock::Time end)
{
    const double vx = evaluator.number(statement.expressions[0]);
    const double vy = evaluator.number(statement.expressions[1]);
    const double omega = evaluator.number(statement.expressions[2]);
    Clock::Time next = clock.now();
    while (next < end) {
        robot.drive(vx, vy, omega);
        // Commands that came late are not made up for.
        next = std::max(next + driveInterval, clock.now());
        pauseUntil(std::min(next, end));
    }
}

void Executor::runRead(const Statement& statement)
{
    const double number = evaluator.number(statement.expressions.front());
    checkNumber(statement.sensor, number);
    variables.set(statement.name, Value(robot.read(statement.sensor, int(number))));
}

void Executor::pauseUntil(Clock::Time end)
{
    while (variables.nextDue() < end) {
        clock.sleepUntil(variables.nextDue());
        variables.tellWhenDue(clock.now());
    }
    clock.sleepUntil(end);
    variables.tellWhenDue(clock.now());
}

std::string Executor::lineOf(const std::vector<Expression>& expressions) const
{
    std::string line;
    for (const Expression& expression : expressions) {
        line += (line.empty() ? "" : " ") + evaluator.value(expression).text();
    }
    return line;
}

Clock::Time Executor::after(const Expression& seconds) const
{
    const double duration = evaluator.number(seconds);
    if (duration < 0 || duration > longestPauseS) {
        throw Problem("expected a time from 0 to " + Value(longestPauseS).text()
                      + " seconds, but found " + Value(duration).text());
    }
    return clock.now()
        + std::chrono::duration_cast<Clock::Time::duration>(
               std::chrono::duration<double>(duration));
}

} // namespace kor::veltrano::lumview

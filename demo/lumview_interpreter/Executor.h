// Executor: carries out a program's statements, one after the other, on the caller's thread.
//
// Created by main for one run. While a statement drives, the speeds are repeated every 100 ms, as
// the daemon stops a robot that hears nothing; whatever ends the statement, a stop follows.
#pragma once

#include "Clock.h"
#include "Evaluator.h"
#include "Robot.h"
#include "Statement.h"
#include "Variables.h"

namespace kor::veltrano::lumview {

class Executor
{
public:
    // All must outlive this; print gets whole lines without their ends.
    Executor(Robot& drivenRobot, Clock& givenClock, Variables& values, Variables::Print printLine);

    // Runs a checked program to its end. Throws a Problem, with its line, that ended it before, or
    // Interrupted; the robot has been stopped then.
    void run(const Program& program);

private:
    void runBlock(const std::vector<Statement>& statements);
    void runStatement(const Statement& statement);
    void runRepeat(const Statement& statement);
    void runDrive(const Statement& statement);
    void runRead(const Statement& statement);
    void driveUntil(const Statement& statement, Clock::Time end);
    // Sleeps and tells variables meanwhile, as often as they are due.
    void pauseUntil(Clock::Time end);
    std::string lineOf(const std::vector<Expression>& expressions) const;
    // A time from now on, given in s.
    Clock::Time after(const Expression& seconds) const;

    Robot& robot;
    Clock& clock;
    Variables& variables;
    Variables::Print print;
    Evaluator evaluator;
};

} // namespace kor::veltrano::lumview

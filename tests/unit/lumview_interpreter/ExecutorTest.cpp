#include "Executor.h"

#include "Parser.h"
#include "Problem.h"
#include "support/FakeClock.h"
#include "support/FakeRobot.h"

#include <gtest/gtest.h>

using namespace kor::veltrano::lumview;
using namespace std::chrono_literals;

namespace {

using Lines = std::vector<std::string>;

class ExecutorTest : public testing::Test
{
protected:
    void run(const std::string& text, std::chrono::milliseconds interval = 1h)
    {
        const auto print = [this](const std::string& line) { lines.push_back(line); };
        Variables variables(print, interval, clock.now());
        Executor(robot, clock, variables, print).run(Parser(text).program());
    }

    // Why a program ends before its end, as "line: text".
    std::string failureOf(const std::string& text)
    {
        try {
            run(text);
            return {};
        } catch (const Problem& problem) {
            return std::to_string(problem.line()) + ": " + problem.what();
        }
    }

    FakeClock clock;
    FakeRobot robot{clock};
    Lines lines;
};

} // namespace

TEST_F(ExecutorTest, PrintsValuesWithBlanksBetweenThem)
{
    run("print \"a\", 1 + 1, \"b\"\nprint \"\"");
    EXPECT_EQ(lines, (Lines{"a 2 b", ""}));
}

TEST_F(ExecutorTest, RepeatsAndDecides)
{
    run("set n = 0\nrepeat 4\nset n = n + 1\nif n = 2\nprint \"two\"\nelse if n > 3\n"
        "print \"last\"\nelse\nprint n\nend\nend\nrepeat 0\nprint \"never\"\nend\n"
        "while n > 2\nset n = n - 1\nprint n\nend");
    EXPECT_EQ(lines, (Lines{"1", "two", "3", "last", "3", "2", "## n;;2 ##"}));
}

TEST_F(ExecutorTest, WaitsAsLongAsItIsTold)
{
    run("wait 1.5\nwait 0");
    EXPECT_EQ(clock.timeMs(), 1500);
}

TEST_F(ExecutorTest, TellsVariablesDuringALongPause)
{
    run("set a = 1\nwait 1\nprint \"then\"", 400ms);
    EXPECT_EQ(lines, (Lines{"## a;;1 ##", "then"}));
}

TEST_F(ExecutorTest, TellsVariablesAtEachChangeWithoutAnInterval)
{
    run("set a = 1\nprint a\nset a = 2", 0ms);
    EXPECT_EQ(lines, (Lines{"## a;;1 ##", "1", "## a;;2 ##"}));
}

TEST_F(ExecutorTest, RepeatsTheSpeedsForAsLongAsItDrivesAndThenStops)
{
    run("drive 0.1 -0.2 0.3 for 0.45");
    ASSERT_EQ(robot.commands.size(), 6U);
    for (std::size_t i = 0; i < 5; ++i) {
        EXPECT_EQ(robot.commands[i].vx, 0.1);
        EXPECT_EQ(robot.commands[i].vy, -0.2);
        EXPECT_EQ(robot.commands[i].omega, 0.3);
        EXPECT_EQ(robot.commands[i].timeMs, long(i) * 100);
    }
    EXPECT_TRUE(robot.commands[5].isStop());
    EXPECT_EQ(robot.commands[5].timeMs, 450);
}

TEST_F(ExecutorTest, DoesntMakeUpForCommandsThatTookLong)
{
    robot.delay = 150ms;
    run("drive 1 0 0 for 0.4");
    ASSERT_EQ(robot.commands.size(), 4U);
    EXPECT_EQ(robot.commands[1].timeMs, 150);
    EXPECT_EQ(robot.commands[2].timeMs, 300);
    EXPECT_TRUE(robot.commands[3].isStop());
}

TEST_F(ExecutorTest, StopsTheRobotWhenItIsInterrupted)
{
    clock.interruptedAtMs = 250;
    EXPECT_THROW(run("set a = 1\ndrive 1 0 0 for 10\nprint \"never\""), Interrupted);
    ASSERT_EQ(robot.commands.size(), 4U);
    EXPECT_TRUE(robot.commands[3].isStop());
    EXPECT_EQ(lines, (Lines{"## a;;1 ##"}));
}

TEST_F(ExecutorTest, StopsTheRobotWhenACommandFailsAndTellsTheFirstReason)
{
    robot.refusedFrom = 2;
    EXPECT_EQ(failureOf("print 1\ndrive 1 0 0 for 10\nprint 2"), "2: refused");
    ASSERT_EQ(robot.commands.size(), 3U);
    EXPECT_TRUE(robot.commands[2].isStop());
    EXPECT_EQ(lines, (Lines{"1"}));
}

TEST_F(ExecutorTest, FailsWhereTheStopIsNotAcknowledged)
{
    robot.refusedFrom = 2;
    EXPECT_EQ(failureOf("drive 1 0 0 for 0.1"), "1: refused");
}

TEST_F(ExecutorTest, CanBeInterruptedInALoopWithoutAPause)
{
    clock.mostSleeps = 1000;
    EXPECT_THROW(run("while 1 = 1\nend"), Interrupted);
    EXPECT_THROW(run("repeat 1000000000\nend"), Interrupted);
}

TEST_F(ExecutorTest, ReadsSensorsIntoVariables)
{
    robot.readings = {
        {{Sensor::Distance, 8}, 0.25}, {{Sensor::Bumper, 0}, 1}, {{Sensor::Odometry, 2}, -3}};
    run("set n = 4\nread distance (n * 2) into d\nread bumper into b\nread odometry phi into p\n"
        "print d, b, p");
    EXPECT_EQ(lines.at(0), "0.25 1 -3");
}

TEST_F(ExecutorTest, TellsTheLineOfWhatGoesWrong)
{
    EXPECT_EQ(failureOf("set a = 0\nrepeat 2\nif a = 0\nprint 1 / a\nend\nend"),
              "4: expected a number other than 0 to divide by");
    EXPECT_EQ(failureOf("wait 0 - 1"), "1: expected a time from 0 to 86400 seconds, but found -1");
    EXPECT_EQ(failureOf("repeat 1.5\nend"),
              "1: expected how often to repeat, a whole number of 0 "
              "or above, but found 1.5");
    EXPECT_EQ(failureOf("set n = 9\nread distance n into d"),
              "2: expected the number of a sensor, a whole one from 0 to 8, but found 9");
    EXPECT_EQ(failureOf("if 1 = 2\nset a = 1\nend\nprint a"),
              "4: the variable \"a\" has no value yet, as the line that gives it one was not "
              "reached");
}

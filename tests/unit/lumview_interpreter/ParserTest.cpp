#include "Parser.h"

#include "Problem.h"

#include <gtest/gtest.h>

#include <fstream>
#include <ostream>
#include <sstream>

using namespace kor::veltrano::lumview;

namespace {

using Action = Statement::Action;

// The mistake that is found, as "line: text"; empty for a good program.
std::string mistakeOf(const std::string& program)
{
    try {
        Parser(program).program();
        return {};
    } catch (const Problem& problem) {
        return std::to_string(problem.line()) + ": " + problem.what();
    }
}

std::string repeated(const std::string& text, int times)
{
    std::string all;
    for (int done = 0; done < times; ++done) {
        all += text;
    }
    return all;
}

struct Mistake {
    std::string program;
    std::string text;
};

void PrintTo(const Mistake& mistake, std::ostream* stream)
{
    *stream << mistake.program;
}

class BadProgramTest : public testing::TestWithParam<Mistake>
{
};

} // namespace

TEST(ParserTest, ReadsStatementsWithTheirLines)
{
    const Program program = Parser("# comment\n\nset a = 1 # one\n  print a, \"#\"\n").program();
    ASSERT_EQ(program.size(), 2U);
    EXPECT_EQ(program[0].action, Action::Set);
    EXPECT_EQ(program[0].name, "a");
    EXPECT_EQ(program[0].line, 3);
    EXPECT_EQ(program[1].action, Action::Print);
    EXPECT_EQ(program[1].line, 4);
    ASSERT_EQ(program[1].expressions.size(), 2U);
    EXPECT_EQ(program[1].expressions[1].value.text(), "#");
}

TEST(ParserTest, PutsBlocksInsideEachOther)
{
    const Program program = Parser("repeat 2 times\nwhile 1 < 2 do\nwait 1\nend\nprint 1\nend\n"
                                   "print 2")
                                .program();
    ASSERT_EQ(program.size(), 2U);
    ASSERT_EQ(program[0].block.size(), 2U);
    EXPECT_EQ(program[0].block[0].action, Action::While);
    ASSERT_EQ(program[0].block[0].block.size(), 1U);
    EXPECT_EQ(program[0].block[0].block[0].action, Action::Wait);
}

TEST(ParserTest, ReadsAChainOfConditionsWithOneEnd)
{
    const Program program = Parser("if 1 = 2 then\nprint 1\nelse if 1 = 3\nprint 2\nelse\nprint 3\n"
                                   "end\nprint 4\n")
                                .program();
    ASSERT_EQ(program.size(), 2U);
    ASSERT_EQ(program[0].otherwise.size(), 1U);
    const Statement& second = program[0].otherwise[0];
    EXPECT_EQ(second.action, Action::If);
    EXPECT_EQ(second.block.size(), 1U);
    EXPECT_EQ(second.otherwise.size(), 1U);
}

TEST(ParserTest, TakesTheSpeedsOfADriveWithAndWithoutCommas)
{
    for (const char* text : {"drive 0.1 -0.2 (1 + 2) for 4", "drive 0.1, -0.2, (1 + 2) for 4"}) {
        const Program program = Parser(text).program();
        ASSERT_EQ(program.size(), 1U) << text;
        ASSERT_EQ(program[0].expressions.size(), 4U) << text;
        EXPECT_EQ(program[0].expressions[1].operation, Expression::Operation::Negate) << text;
        EXPECT_EQ(program[0].expressions[2].operation, Expression::Operation::Add) << text;
    }
}

TEST(ParserTest, ReadsTheSensorsByName)
{
    const Program program =
        Parser("read odometry phi into a\nread distance 8 into b\n"
               "read bumper into c\nread analog b into d\nread digital 7 into e")
            .program();
    ASSERT_EQ(program.size(), 5U);
    EXPECT_EQ(program[0].sensor, Sensor::Odometry);
    EXPECT_EQ(program[0].expressions.at(0).value.number(), 2);
    EXPECT_EQ(program[1].sensor, Sensor::Distance);
    EXPECT_EQ(program[1].expressions.at(0).value.number(), 8);
    EXPECT_EQ(program[2].sensor, Sensor::Bumper);
    EXPECT_EQ(program[3].sensor, Sensor::Analog);
    EXPECT_EQ(program[4].sensor, Sensor::Digital);
}

TEST(ParserTest, AcceptsAnyKindOfFile)
{
    EXPECT_EQ(mistakeOf(""), "");
    EXPECT_EQ(mistakeOf("# nothing but this"), "");
    EXPECT_EQ(mistakeOf("\xef\xbb\xbfprint 1\r\nprint 2\r\n"), "");
    EXPECT_EQ(mistakeOf("set gr\xc3\xb6\xc3\x9f"
                        "e = 1\nprint gr\xc3\xb6\xc3\x9f"
                        "e"),
              "");
}

TEST(ParserTest, FindsNoMistakeInTheExamples)
{
    for (const char* name : {"hello", "square", "patrol"}) {
        std::ifstream file(std::string(EXAMPLES_PATH) + '/' + name + ".lv");
        std::ostringstream text;
        text << file.rdbuf();
        EXPECT_NE(text.str(), "") << name;
        EXPECT_EQ(mistakeOf(text.str()), "") << name;
    }
}

TEST(ParserTest, RefusesWhatWouldOverflowTheStack)
{
    EXPECT_EQ(mistakeOf(repeated("repeat 1\n", 50) + repeated("end\n", 50)), "");
    EXPECT_EQ(mistakeOf(repeated("repeat 1\n", 51) + repeated("end\n", 51)),
              "51: expected at most 50 blocks inside each other");
    EXPECT_EQ(mistakeOf("print " + repeated("(", 490) + '1' + repeated(")", 490)), "");
    EXPECT_EQ(mistakeOf("print 1" + repeated("+1", 500)),
              "1: expected a line of at most 1000 characters, but found 1007");
}

TEST_P(BadProgramTest, IsRefusedWithWhatWasExpected)
{
    EXPECT_EQ(mistakeOf(GetParam().program), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(
    Mistakes, BadProgramTest,
    testing::Values(
        Mistake{"print 1\nPrint 2",
                "2: expected a command (print, set, wait, repeat, while, if, else, end, drive or "
                "read), but found \"Print\""},
        Mistake{"set a = 1\na = 2", "2: expected \"set\" before the variable, as: set a = 1"},
        Mistake{"set a 1", "1: expected \"=\" after the variable's name, but found \"1\""},
        Mistake{"set 1 = a", "1: expected the name of a variable, but found \"1\""},
        Mistake{"set for = 1",
                "1: expected the name of a variable, which is no word of the "
                "language, but found \"for\""},
        Mistake{"set a = a + 1",
                "1: the variable \"a\" has no value yet; expected a line above "
                "that gives it one, as: set a = 0"},
        Mistake{"print",
                "1: expected a number, a text in \"quotes\", a variable or a calculation "
                "in parentheses, but found the end of the line"},
        Mistake{"print 1 2", "1: expected the end of the line, but found \"2\""},
        Mistake{"print 1 \"end\"", "1: expected the end of the line, but found the text \"end\""},
        Mistake{"print \"abc",
                "1: expected a \" at the end of the text, but found the end of the line"},
        Mistake{"print (1 + 2",
                "1: expected \")\" after the calculation, but found the end of "
                "the line"},
        Mistake{"print 1.2.3", "1: expected a number as 12 or 0.5, but found \"1.2.3\""},
        Mistake{"print 5m", "1: expected a number as 12 or 0.5, but found \"5m\""},
        Mistake{"print 1 & 2",
                "1: the character & means nothing here; texts are written in "
                "\"quotes\", comments begin with #"},
        Mistake{"print sqrt 4", "1: expected \"(\" after sqrt, but found \"4\""},
        Mistake{"if 1\nend",
                "1: expected a comparison (one of = != < <= > >=), but found the end "
                "of the line"},
        Mistake{"\nrepeat 3\nprint 1",
                "2: expected an \"end\" for this \"repeat\", but found the end of the program"},
        Mistake{"print 1\nend",
                "2: expected a command, but found an \"end\" without its repeat, "
                "while or if"},
        Mistake{"while 1 = 1\nelse\nend",
                "2: expected \"end\" for the \"while\" of line 1, but found \"else\""},
        Mistake{"if 1 = 1\nelse print 1\nend",
                "2: expected \"if\" or the end of the line after "
                "\"else\", but found \"print\""},
        Mistake{"drive 1 2 for 3",
                "1: expected a number, a text in \"quotes\" or a variable, but "
                "found \"for\""},
        Mistake{"drive 1 2 3",
                "1: expected \"for\" and the seconds after the three speeds, as: "
                "drive 0.2 0 0 for 1.5, but found the end of the line"},
        Mistake{"drive 1*2 0 0 for 3",
                "1: expected calculations of a speed to stand in parentheses, but found \"*\""},
        Mistake{"read distance 9 into d",
                "1: expected the number of a sensor, a whole one from 0 "
                "to 8, but found 9"},
        Mistake{"read bumper",
                "1: expected \"into\" and a variable after the sensor, but found "
                "the end of the line"},
        Mistake{"read odometry z into a",
                "1: expected x, y, phi, vx, vy or omega after "
                "\"odometry\", but found \"z\""},
        Mistake{"read camera into a",
                "1: expected a sensor (odometry, distance, bumper, analog "
                "or digital), but found \"camera\""}));

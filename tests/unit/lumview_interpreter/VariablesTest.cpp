#include "Variables.h"

#include <gtest/gtest.h>

#include <vector>

using namespace kor::veltrano::lumview;
using namespace std::chrono_literals;

namespace {

using Lines = std::vector<std::string>;

class VariablesTest : public testing::Test
{
protected:
    Variables telling(std::chrono::milliseconds interval)
    {
        return Variables([this](const std::string& line) { lines.push_back(line); }, interval,
                         start);
    }

    const Clock::Time start = Clock::Time() + 1h;
    Lines lines;
};

} // namespace

TEST_F(VariablesTest, AreToldAtEachChangeWithoutAnInterval)
{
    Variables variables = telling(0ms);
    variables.set("a", Value(1));
    variables.set("a", Value(1));
    variables.set("b", Value(std::string("x y")));
    variables.set("a", Value(1.5));
    EXPECT_EQ(lines, (Lines{"## a;;1 ##", "## b;;x y ##", "## a;;1.5 ##"}));
    EXPECT_EQ(variables.nextDue(), Clock::Time::max());
}

TEST_F(VariablesTest, AreToldOnceAnIntervalWhereTheyHaveChanged)
{
    Variables variables = telling(500ms);
    variables.set("b", Value(1));
    variables.set("b", Value(2));
    variables.set("a", Value(3));
    variables.tellWhenDue(start + 499ms);
    EXPECT_EQ(lines, Lines{});
    variables.tellWhenDue(start + 500ms);
    EXPECT_EQ(lines, (Lines{"## a;;3 ##", "## b;;2 ##"}));
    variables.set("b", Value(4));
    variables.tellWhenDue(start + 999ms);
    EXPECT_EQ(lines.size(), 2U);
    variables.tellWhenDue(start + 1000ms);
    EXPECT_EQ(lines, (Lines{"## a;;3 ##", "## b;;2 ##", "## b;;4 ##"}));
}

TEST_F(VariablesTest, CanChangeFromANumberToATextOfTheSameLook)
{
    Variables variables = telling(0ms);
    variables.set("a", Value(1));
    variables.set("a", Value(std::string("1")));
    ASSERT_NE(variables.find("a"), nullptr);
    EXPECT_FALSE(variables.find("a")->isNumber());
    EXPECT_EQ(variables.find("b"), nullptr);
}

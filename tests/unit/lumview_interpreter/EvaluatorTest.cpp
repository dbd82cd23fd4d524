#include "Evaluator.h"

#include "ExpressionParser.h"
#include "Problem.h"
#include "Tokenizer.h"

#include <gtest/gtest.h>

using namespace kor::veltrano::lumview;

namespace {

class EvaluatorTest : public testing::Test
{
protected:
    EvaluatorTest()
    {
        names.add("a");
        names.add("word");
        names.add("unset");
        variables.set("a", Value(7));
        variables.set("word", Value(std::string("abc")));
    }

    // What a calculation gives, or why it can't be worked out.
    std::string result(const std::string& calculation) const
    {
        TokenReader reader(Tokenizer(calculation).tokens());
        const Expression expression = ExpressionParser(reader, names).calculation();
        reader.expectEnd();
        try {
            return Evaluator(variables).value(expression).text();
        } catch (const Problem& problem) {
            return problem.what();
        }
    }

    bool holds(const std::string& condition) const
    {
        TokenReader reader(Tokenizer(condition).tokens());
        const Expression expression = ExpressionParser(reader, names).condition();
        reader.expectEnd();
        return Evaluator(variables).holds(expression);
    }

    Names names;
    Variables variables{[](const std::string&) {}, std::chrono::milliseconds(0), {}};
};

} // namespace

TEST_F(EvaluatorTest, CalculatesInTheOrderThatSchoolTeaches)
{
    EXPECT_EQ(result("1 + 2 * 3"), "7");
    EXPECT_EQ(result("(1 + 2) * 3"), "9");
    EXPECT_EQ(result("10 - 4 - 3"), "3");
    EXPECT_EQ(result("12 / 2 / 3"), "2");
    EXPECT_EQ(result("-a + 10"), "3");
    EXPECT_EQ(result("2 * -3"), "-6");
}

TEST_F(EvaluatorTest, KnowsItsFunctions)
{
    EXPECT_EQ(result("abs(0 - 2)"), "2");
    EXPECT_EQ(result("round(2.6)"), "3");
    EXPECT_EQ(result("sqrt(16)"), "4");
    EXPECT_EQ(result("sin(pi / 2)"), "1");
    EXPECT_EQ(result("cos(pi)"), "-1");
    EXPECT_EQ(result("angle(3 * pi / 2) * 2 / pi"), "-1");
    EXPECT_EQ(result("angle(0 - 5) - (2 * pi - 5)"), "0");
}

TEST_F(EvaluatorTest, JoinsTextsWithWhatIsAddedToThem)
{
    EXPECT_EQ(result("word + \"!\""), "abc!");
    EXPECT_EQ(result("\"a is \" + a"), "a is 7");
    EXPECT_EQ(result("1 + 2 + word"), "3abc");
}

TEST_F(EvaluatorTest, TellsWhatCantBeWorkedOut)
{
    EXPECT_EQ(result("1 / (a - 7)"), "expected a number other than 0 to divide by");
    EXPECT_EQ(result("word * 2"), "expected a number, but found the text \"abc\"");
    EXPECT_EQ(result("-word"), "expected a number, but found the text \"abc\"");
    EXPECT_EQ(result("sqrt(0 - 1)"), "expected a number of 0 or above for sqrt, but found -1");
    const std::string huge = "1" + std::string(200, '0');
    EXPECT_EQ(result(huge + '*' + huge), "the result of this calculation is too large");
    EXPECT_EQ(result("unset"),
              "the variable \"unset\" has no value yet, as the line that gives it "
              "one was not reached");
}

TEST_F(EvaluatorTest, Compares)
{
    EXPECT_TRUE(holds("a = 7"));
    EXPECT_TRUE(holds("a == 7"));
    EXPECT_FALSE(holds("a != 7"));
    EXPECT_TRUE(holds("a + 1 > 7"));
    EXPECT_FALSE(holds("a > 7"));
    EXPECT_TRUE(holds("a >= 7"));
    EXPECT_TRUE(holds("a <= 7"));
    EXPECT_FALSE(holds("a < 7"));
    EXPECT_TRUE(holds("word = \"abc\""));
    EXPECT_TRUE(holds("word != \"ABC\""));
}

TEST_F(EvaluatorTest, BindsAndStrongerThanOr)
{
    EXPECT_TRUE(holds("1 = 1 or 1 = 1 and 1 = 2"));
    EXPECT_FALSE(holds("1 = 2 or 1 = 1 and 1 = 2"));
    EXPECT_TRUE(holds("1 = 2 and 1 = 1 or 1 = 1"));
}

TEST_F(EvaluatorTest, AsksNoFurtherThanTheAnswerNeeds)
{
    EXPECT_TRUE(holds("a = 7 or unset = 1"));
    EXPECT_FALSE(holds("a = 8 and unset = 1"));
}

TEST_F(EvaluatorTest, ComparesNoTextWithANumber)
{
    EXPECT_THROW(holds("word = 7"), Problem);
    EXPECT_THROW(holds("7 != word"), Problem);
    EXPECT_THROW(holds("word < \"b\""), Problem);
}

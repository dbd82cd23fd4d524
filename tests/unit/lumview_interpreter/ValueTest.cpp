#include "Value.h"

#include "Problem.h"

#include <gtest/gtest.h>

using namespace kor::veltrano::lumview;

TEST(ValueTest, PrintsNumbersAsPeopleWriteThem)
{
    EXPECT_EQ(Value(100).text(), "100");
    EXPECT_EQ(Value(0).text(), "0");
    EXPECT_EQ(Value(-0.5).text(), "-0.5");
    EXPECT_EQ(Value(0.1 + 0.2).text(), "0.3");
    EXPECT_EQ(Value(1.0 / 3).text(), "0.333333");
    EXPECT_EQ(Value(1e18).text(), "1e+18");
}

TEST(ValueTest, PrintsWhatIsNearlyZeroAsZeroWithoutASign)
{
    EXPECT_EQ(Value(-0.0).text(), "0");
    EXPECT_EQ(Value(-1e-12).text(), "0");
}

TEST(ValueTest, NamesATextThatIsTakenForANumber)
{
    try {
        static_cast<void>(Value(std::string("seven")).number());
        FAIL();
    } catch (const Problem& problem) {
        EXPECT_STREQ(problem.what(), "expected a number, but found the text \"seven\"");
    }
}

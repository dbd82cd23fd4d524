#include "Options.h"

#include <gtest/gtest.h>

#include <cstdlib>

using namespace kor::veltrano::lumview;

namespace {

class LumviewOptionsTest : public testing::Test
{
protected:
    LumviewOptionsTest() { clear(); }
    ~LumviewOptionsTest() override { clear(); }

    static void clear()
    {
        for (const char* name : {"LUMVIEW_DAEMON", "LUMVIEW_ROLE", "LUMVIEW_PASSWORD"}) {
            unsetenv(name);
        }
    }
};

} // namespace

TEST_F(LumviewOptionsTest, FitTheDemoWhereOnlyAProgramIsNamed)
{
    const Options::Outcome outcome = Options::parse({"-f", "a b.lv"});
    ASSERT_TRUE(outcome.options);
    EXPECT_EQ(outcome.options->file, "a b.lv");
    EXPECT_EQ(outcome.options->variableInterval.count(), 0);
    EXPECT_EQ(outcome.options->daemon, "http://127.0.0.1:8080");
    EXPECT_EQ(outcome.options->role, "operator");
    EXPECT_EQ(outcome.options->password, "operator");
}

TEST_F(LumviewOptionsTest, TakeTheDaemonsCommandLine)
{
    const Options::Outcome outcome =
        Options::parse({"--global-variable-output-interval", "500", "-f", "a.lv"});
    ASSERT_TRUE(outcome.options);
    EXPECT_EQ(outcome.options->file, "a.lv");
    EXPECT_EQ(outcome.options->variableInterval.count(), 500);
}

TEST_F(LumviewOptionsTest, PreferTheCommandLineToTheEnvironment)
{
    setenv("LUMVIEW_DAEMON", "http://10.0.0.1:1", 1);
    setenv("LUMVIEW_PASSWORD", "", 1);
    const Options::Outcome outcome =
        Options::parse({"-f", "a.lv", "--daemon", "http://10.0.0.2:2"});
    ASSERT_TRUE(outcome.options);
    EXPECT_EQ(outcome.options->daemon, "http://10.0.0.2:2");
    EXPECT_EQ(outcome.options->password, "");
}

TEST_F(LumviewOptionsTest, ShowHelp)
{
    const Options::Outcome outcome = Options::parse({"--help"});
    EXPECT_FALSE(outcome.options);
    EXPECT_FALSE(outcome.isError);
    EXPECT_NE(outcome.text.find("--global-variable-output-interval"), std::string::npos);
}

TEST_F(LumviewOptionsTest, RefuseWhatTheyDontKnow)
{
    EXPECT_EQ(Options::parse({}).text, "expected -f and the file of a program; see --help");
    EXPECT_EQ(Options::parse({"-f"}).text, "expected a value after -f; see --help");
    EXPECT_EQ(Options::parse({"-f", "a", "b"}).text, "unknown option b; see --help");
    for (const char* interval : {"", "-5", "1.5", "x", "9999999999"}) {
        const Options::Outcome outcome =
            Options::parse({"-f", "a", "--global-variable-output-interval", interval});
        EXPECT_FALSE(outcome.options) << interval;
        EXPECT_TRUE(outcome.isError) << interval;
    }
}

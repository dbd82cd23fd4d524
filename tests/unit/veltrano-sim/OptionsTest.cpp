#include "Options.h"

#include <gtest/gtest.h>

using namespace kor::veltrano::sim;

namespace {

Options::Outcome parse(const QStringList& arguments)
{
    return Options::parse(QStringList{QStringLiteral("veltrano-sim")} + arguments);
}

std::string errorOf(const char* argument)
{
    const Options::Outcome outcome = parse({QString::fromLatin1(argument)});
    EXPECT_FALSE(outcome.options) << argument;
    EXPECT_TRUE(outcome.isError) << argument;
    return outcome.text.toStdString();
}

} // namespace

TEST(OptionsTest, HaveDefaults)
{
    const Options::Outcome outcome = parse({});
    ASSERT_TRUE(outcome.options);
    EXPECT_EQ(outcome.options->listen.text().toStdString(), "127.0.0.1:12080");
    EXPECT_FALSE(outcome.options->control);
    EXPECT_EQ(outcome.options->seed, 1U);
    EXPECT_EQ(outcome.options->world.toStdString(), "room");
    EXPECT_EQ(outcome.options->record.toStdString(), "");
}

TEST(OptionsTest, AreTakenFromTheCommandLine)
{
    const Options::Outcome outcome =
        parse({QStringLiteral("--listen=0.0.0.0:0"), QStringLiteral("--control"),
               QStringLiteral("[::1]:7"), QStringLiteral("--seed=18446744073709551615"),
               QStringLiteral("--world=a b.json"), QStringLiteral("--record=/tmp/c d")});
    ASSERT_TRUE(outcome.options) << outcome.text.toStdString();
    EXPECT_EQ(outcome.options->listen.text().toStdString(), "0.0.0.0:0");
    EXPECT_EQ(outcome.options->control->text().toStdString(), "[::1]:7");
    EXPECT_EQ(outcome.options->seed, 18446744073709551615ULL);
    EXPECT_EQ(outcome.options->world.toStdString(), "a b.json");
    EXPECT_EQ(outcome.options->record.toStdString(), "/tmp/c d");
}

TEST(OptionsTest, ErrorsNameTheOptionAndItsValue)
{
    EXPECT_EQ(errorOf("--listen=here"),
              "--listen=here is no address of the form HOST:PORT, as 127.0.0.1:12080; see --help");
    EXPECT_EQ(errorOf("--control="),
              "--control= is no address of the form HOST:PORT, as 127.0.0.1:12080; see --help");
    EXPECT_EQ(errorOf("--seed=-1"), "--seed=-1 is no whole number of 0 or above; see --help");
    EXPECT_EQ(errorOf("--seed=1x"), "--seed=1x is no whole number of 0 or above; see --help");
    EXPECT_EQ(errorOf("--world="), "--world is empty; see --help");
    EXPECT_EQ(errorOf("--record="), "--record is empty; see --help");
    EXPECT_EQ(errorOf("--unknown"), "Unknown option 'unknown'.; see --help");
    EXPECT_EQ(errorOf("world.json"), "Unexpected argument 'world.json'; see --help");
}

TEST(OptionsTest, HelpIsNoError)
{
    const Options::Outcome outcome = parse({QStringLiteral("--help")});
    EXPECT_FALSE(outcome.options);
    EXPECT_FALSE(outcome.isError);
    EXPECT_TRUE(outcome.text.contains(QStringLiteral("--listen <HOST:PORT>")));
}

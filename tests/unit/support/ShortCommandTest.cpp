#include "support/ShortCommand.h"

#include <QElapsedTimer>
#include <QFile>

#include <gtest/gtest.h>

namespace kor::veltrano::daemons {
namespace {

CommandOutput runShell(const char* commands)
{
    return runShortCommand(QStringLiteral("sh"),
                           {QStringLiteral("-c"), QString::fromUtf8(commands)});
}

TEST(ShortCommandTest, BothOutputsAreKeptApart)
{
    const CommandOutput output = runShell("echo out; echo err >&2");
    EXPECT_TRUE(output.isFinished);
    EXPECT_EQ(output.standardOutput, "out\n");
    EXPECT_EQ(output.standardError, "err\n");
}

TEST(ShortCommandTest, TheWayACommandEndsPlaysNoPart)
{
    for (const char* end : {"exit 1", "kill -9 $$", "kill -TERM $$"}) {
        const CommandOutput output = runShell(qPrintable(QString("echo out; ") + end));
        EXPECT_TRUE(output.isFinished) << end;
        EXPECT_EQ(output.standardOutput, "out\n") << end;
    }
}

TEST(ShortCommandTest, ACommandThatCannotBeStartedIsNotFinished)
{
    for (const char* program : {"", "no-such-command-here", "/tmp"}) {
        const CommandOutput output = runShortCommand(QString::fromUtf8(program), {});
        EXPECT_FALSE(output.isFinished) << program;
        EXPECT_EQ(output.standardOutput + output.standardError, "") << program;
    }
}

TEST(ShortCommandTest, ACommandThatTakesTooLongIsEndedAndItsOutputKept)
{
    QElapsedTimer timer;
    timer.start();
    const CommandOutput output =
        runShell("trap '' TERM; echo $$; echo err >&2; while :; do sleep 0.01; done");
    EXPECT_GE(timer.elapsed(), 500);
    EXPECT_FALSE(output.isFinished);
    EXPECT_EQ(output.standardError, "err\n");
    const QString process = QStringLiteral("/proc/") + output.standardOutput.trimmed();
    EXPECT_GT(process.size(), 6);
    EXPECT_FALSE(QFile::exists(process));
}

TEST(ShortCommandTest, ACommandHasNoInput)
{
    const CommandOutput output = runShell("cat; echo end");
    EXPECT_TRUE(output.isFinished);
    EXPECT_EQ(output.standardOutput, "end\n");
}

// Such a child holds the outputs open.
TEST(ShortCommandTest, AChildThatStaysBehindIsNotWaitedFor)
{
    const CommandOutput output = runShell("sleep 2 & echo out");
    EXPECT_TRUE(output.isFinished);
    EXPECT_EQ(output.standardOutput, "out\n");
}

TEST(ShortCommandTest, MoreThanAPipeHoldsIsKept)
{
    const CommandOutput output = runShell("head -c 1000000 /dev/zero; echo end >&2");
    EXPECT_TRUE(output.isFinished);
    EXPECT_EQ(output.standardOutput.size(), 1'000'000);
    EXPECT_EQ(output.standardError, "end\n");
}

TEST(ShortCommandTest, ArgumentsArriveAsTheyAre)
{
    const CommandOutput output =
        runShortCommand(QStringLiteral("printf"),
                        {QStringLiteral("<%s>"), QString(), QStringLiteral("a b"),
                         QStringLiteral("$(x) `y` \"'*\n"), QString::fromUtf8("\u00e4")});
    EXPECT_EQ(output.standardOutput,
              QString::fromUtf8("<><a b><$(x) `y` \"'*\n><\u00e4>").toUtf8());
}

} // namespace
} // namespace kor::veltrano::daemons

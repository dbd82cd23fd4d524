#include "programs/ScriptRunner.h"

#include "config/ConfigFile.h"

#include "support/LogFixture.h"

#include <QDeadlineTimer>
#include <QEventLoop>
#include <QFileInfo>

#include <atomic>
#include <functional>
#include <thread>
#include <vector>

namespace kor::veltrano::daemons {
namespace {

// The interpreter is a shell script that each test writes; "$@" in it is what the runner gives it.
class ScriptRunnerTest : public LogFixture
{
protected:
    ScriptRunnerTest()
    {
        openLog(2);
        settings.values[QStringLiteral("Lumview/path")] = interpreter();
    }
    ~ScriptRunnerTest() override { settings = ConfigFile(); }

    QString interpreter() const { return folder.filePath(QStringLiteral("interpreter")); }

    void writeInterpreter(const QByteArray& text) const
    {
        QFile file(interpreter());
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("#!/bin/sh\n" + text);
        file.close();
        file.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }

    static bool waitFor(const std::function<bool()>& condition)
    {
        const QDeadlineTimer deadline(20000);
        while (!condition() && !deadline.hasExpired()) {
            QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        }
        return condition();
    }

    static bool hasOutput(const ScriptRunner& runner, const QStringList& lines)
    {
        const bool hasIt = waitFor([&] { return runner.output() == lines; });
        EXPECT_EQ(runner.output(), lines);
        return hasIt;
    }

    static QStringList outputOf(const QByteArray& chunk)
    {
        ScriptRunner runner;
        runner.parseOutput(chunk);
        return runner.output();
    }

    static QMap<QString, QString> variablesOf(const QByteArray& chunk)
    {
        ScriptRunner runner;
        runner.parseOutput(chunk);
        return runner.globalVariables();
    }
};

using Variables = QMap<QString, QString>;

TEST_F(ScriptRunnerTest, VariableLinesLoseThreeCharactersAtEachEnd)
{
    EXPECT_EQ(variablesOf("## speed;;1.5 ##\n"), Variables({{"speed", "1.5"}}));
    EXPECT_EQ(variablesOf("##speed;;1.5##\n"), Variables({{"peed", "1."}}));
    EXPECT_EQ(variablesOf("## a;; ##\n"), Variables({{"a", ""}}));
    EXPECT_EQ(variablesOf("## ;;b ##"), Variables({{"", "b"}}));
}

TEST_F(ScriptRunnerTest, VariableLinesOfAnotherShapeAreDropped)
{
    for (const char* line : {"## a;;b;;c ##", "## a ##", "##", "###", "####", "#####", "##;;##",
                             "## a;b ##", "######"}) {
        EXPECT_TRUE(variablesOf(line).isEmpty()) << line;
        EXPECT_TRUE(outputOf(line).isEmpty()) << line;
    }
}

TEST_F(ScriptRunnerTest, LinesThatOnlyResembleAVariableAreOutput)
{
    EXPECT_EQ(outputOf(" ## a;;b ##\n## a;;b\na ##\n## a;;b ## \n"),
              QStringList({" ## a;;b ##", "## a;;b", "a ##", "## a;;b ## "}));
}

TEST_F(ScriptRunnerTest, ALaterValueTakesTheEarlierOnesPlace)
{
    const Variables variables = variablesOf("## b;;1 ##\n## a;;2 ##\n## b;;3 ##\n");
    EXPECT_EQ(variables, Variables({{"a", "2"}, {"b", "3"}}));
}

TEST_F(ScriptRunnerTest, EmptyLinesAreSkippedAndOthersNotTrimmed)
{
    EXPECT_EQ(outputOf("a\n\n  b  \r\n\nc"), QStringList({"a", "  b  ", "c"}));
}

TEST_F(ScriptRunnerTest, ALineInTwoPiecesIsTwoLines)
{
    ScriptRunner runner;
    runner.parseOutput("one li");
    runner.parseOutput("ne\n## a;;");
    runner.parseOutput("1 ##\n");
    EXPECT_EQ(runner.output(), QStringList({"one li", "ne", "## a;;", "1 ##"}));
    EXPECT_TRUE(runner.globalVariables().isEmpty());
}

TEST_F(ScriptRunnerTest, TwentyLinesAreKept)
{
    QByteArray text;
    QStringList lines;
    for (int line = 1; line <= 21; ++line) {
        text += QByteArray::number(line) + '\n';
        lines.append(QString::number(line));
    }
    EXPECT_EQ(outputOf(text), lines.mid(1));
}

TEST_F(ScriptRunnerTest, TheNumberOfLinesIsASetting)
{
    for (const auto& [setting, kept] :
         {std::pair("2", 2), std::pair("many", 0), std::pair("-3", 0), std::pair("", 0)}) {
        settings.values[QStringLiteral("Lumview/outputMaxSize")] = QString::fromLatin1(setting);
        EXPECT_EQ(outputOf("a\nb\nc\n").size(), kept) << setting;
    }
}

TEST_F(ScriptRunnerTest, TheInterpreterGetsTheProgramAndTheInterval)
{
    writeInterpreter("echo \"$#:$*\"\n");
    ScriptRunner runner;
    runner.startProgram("/p/a b.lv");
    hasOutput(runner, {"2:-f /p/a b.lv"});
    settings.values[QStringLiteral("Lumview/globalVariableOutputInterval")] = "500";
    runner.startProgram("/p/a.lv");
    hasOutput(runner, {"4:--global-variable-output-interval 500 -f /p/a.lv"});
    for (const char* none : {"-5", "0", "soon", ""}) {
        settings.values[QStringLiteral("Lumview/globalVariableOutputInterval")] = none;
        runner.startProgram("/p/a.lv");
        hasOutput(runner, {"2:-f /p/a.lv"});
    }
}

TEST_F(ScriptRunnerTest, BothStreamsAreOutput)
{
    writeInterpreter("echo out; echo err >&2; echo '## a;;1 ##' >&2\n");
    ScriptRunner runner;
    runner.startProgram("x");
    hasOutput(runner, {"out", "err"});
    EXPECT_TRUE(waitFor([&] { return runner.globalVariables() == Variables({{"a", "1"}}); }));
}

TEST_F(ScriptRunnerTest, TheInputStaysOpenAndSaysNothing)
{
    writeInterpreter("test -p /dev/stdin && echo pipe; read line; echo end\n");
    ScriptRunner runner;
    runner.startProgram("x");
    hasOutput(runner, {"pipe"});
    const QDeadlineTimer later(100);
    waitFor([&] { return later.hasExpired(); });
    EXPECT_TRUE(runner.isRunning("x"));
    EXPECT_EQ(runner.output(), QStringList("pipe"));
}

TEST_F(ScriptRunnerTest, AProgramRunsUntilItsProcessEndsAndItsOutputStays)
{
    writeInterpreter("echo hello; read line < \"$2\"\n");
    QFile::remove(folder.filePath("pipe"));
    ASSERT_EQ(system(qPrintable("mkfifo " + folder.filePath("pipe"))), 0);
    const QString program = folder.filePath("pipe");
    ScriptRunner runner;
    EXPECT_FALSE(runner.isRunning(program));
    runner.startProgram(program);
    EXPECT_FALSE(runner.isRunning(program));
    hasOutput(runner, {"hello"});
    EXPECT_TRUE(runner.isRunning(program));
    EXPECT_FALSE(runner.isRunning(program.toUpper()));
    EXPECT_TRUE(runner.killProgram());
    EXPECT_TRUE(waitFor([&] { return !runner.isRunning(program); }));
    EXPECT_FALSE(runner.killProgram());
    EXPECT_EQ(runner.output(), QStringList("hello"));
    EXPECT_EQ(logLines().last(),
              "ScriptRunner::on_process_finished " + interpreter() + " : exitcode = 9");
}

TEST_F(ScriptRunnerTest, ANewProgramTakesTheOldOnesPlaceUnheard)
{
    writeInterpreter("echo \"$2\"; sleep 1000\n");
    ScriptRunner runner;
    runner.startProgram("one");
    hasOutput(runner, {"one"});
    runner.startProgram("two");
    EXPECT_TRUE(runner.output().isEmpty());
    EXPECT_TRUE(runner.isRunning("one"));
    hasOutput(runner, {"two"});
    EXPECT_FALSE(runner.isRunning("one"));
    EXPECT_TRUE(runner.isRunning("two"));
    EXPECT_TRUE(logLines().filter("on_process_finished").isEmpty());
}

TEST_F(ScriptRunnerTest, AStartThatFailsIsToldAndLooksLikeARunningProgram)
{
    ScriptRunner runner;
    runner.parseOutput("old\n## a;;1 ##\n");
    runner.startProgram("x");
    EXPECT_TRUE(runner.output().isEmpty());
    EXPECT_TRUE(runner.globalVariables().isEmpty());
    EXPECT_TRUE(waitFor([&] { return logLines().last().contains("error = 0"); }));
    EXPECT_EQ(logLines().last(),
              "ScriptRunner::on_process_error " + interpreter() + " : error = 0");
    EXPECT_TRUE(runner.isRunning("x"));
    EXPECT_TRUE(runner.killProgram());
    EXPECT_TRUE(runner.isRunning("x"));
    writeInterpreter("echo \"$2\"\n");
    runner.startProgram("y");
    hasOutput(runner, {"y"});
}

TEST_F(ScriptRunnerTest, AnEmptyInterpreterIsToldToo)
{
    settings.values[QStringLiteral("Lumview/path")] = "";
    ScriptRunner runner;
    runner.startProgram("x");
    EXPECT_TRUE(waitFor([&] { return !logLines().filter("error = 0").isEmpty(); }));
    EXPECT_EQ(logLines().last(), "ScriptRunner::on_process_error  : error = 0");
}

TEST_F(ScriptRunnerTest, StartAndEndAreToldAtLevelTwo)
{
    writeInterpreter("echo 'a %1'\nexit 3\n");
    ScriptRunner runner;
    runner.startProgram("/p/a%2.lv");
    EXPECT_TRUE(waitFor([&] { return logLines().last().contains("exitcode"); }));
    QStringList lines = logLines().mid(1);
    lines.sort();
    EXPECT_EQ(lines,
              QStringList({" ScriptRunner::startProcess " + interpreter() + " -f /p/a%2.lv",
                           interpreter() + ": started",
                           "ScriptRunner::on_process_finished " + interpreter() + " : exitcode = 3",
                           "a %1"}));
}

TEST_F(ScriptRunnerTest, TheEndOfTheRunnerEndsTheProgram)
{
    writeInterpreter("echo $$; exec sleep 1000\n");
    QString pid;
    {
        ScriptRunner runner;
        runner.startProgram("x");
        ASSERT_TRUE(waitFor([&] { return !runner.output().isEmpty(); }));
        pid = runner.output().first();
        EXPECT_TRUE(QFileInfo::exists("/proc/" + pid));
    }
    EXPECT_FALSE(QFileInfo::exists("/proc/" + pid));
}

TEST_F(ScriptRunnerTest, RequestsFromManyThreadsMeetNoHalfChangedMap)
{
    writeInterpreter("echo \"$2\"\n");
    ScriptRunner runner;
    std::atomic<int> left = 4;
    std::vector<std::thread> threads;
    for (int thread = 0; thread < 4; ++thread) {
        threads.emplace_back([&, thread] {
            const QString program = QString::number(thread % 2);
            for (int turn = 0; turn < 50; ++turn) {
                if (!runner.isRunning(program)) {
                    runner.startProgram(program);
                }
                runner.killProgram();
                runner.output();
                std::this_thread::sleep_for(std::chrono::milliseconds(1));
            }
            --left;
        });
    }
    EXPECT_TRUE(waitFor([&] { return left == 0; }));
    for (std::thread& thread : threads) {
        thread.join();
    }
    runner.startProgram("last");
    hasOutput(runner, {"last"});
}

} // namespace
} // namespace kor::veltrano::daemons

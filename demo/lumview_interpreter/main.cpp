// lumview_interpreter: runs a user's program.

#include "DaemonRobot.h"
#include "Executor.h"
#include "Interrupted.h"
#include "Options.h"
#include "Parser.h"
#include "Problem.h"
#include "SignalClock.h"
#include "printLine.h"

#include <QCoreApplication>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <sstream>

using namespace kor::veltrano::lumview;

namespace {

constexpr int badProgram = 1;
constexpr int badCommandLine = 2;
// What shells show for a program that a signal has ended.
constexpr int endedBySignal = 128;

void complain(const std::string& text)
{
    std::fprintf(stderr, "%s\n", text.c_str());
}

std::string textOf(const std::string& file)
{
    std::ifstream stream(file, std::ios::binary);
    std::ostringstream text;
    // A folder can be opened but not read.
    if (!stream || (stream.peek(), stream.bad())) {
        throw Problem(std::string("cannot be read: ") + std::strerror(errno));
    }
    text << stream.rdbuf();
    return text.str();
}

void run(const Options& options, Clock& clock)
{
    const Program program = Parser(textOf(options.file)).program();
    DaemonRobot robot(options.daemon, options.role, options.password);
    Variables variables(printLine, options.variableInterval, clock.now());
    Executor(robot, clock, variables, printLine).run(program);
}

} // namespace

int main(int argc, char* argv[])
{
    // A reader that has gone is told by the write.
    std::signal(SIGPIPE, SIG_IGN);
    const std::vector<std::string> arguments(argv + std::min(argc, 1), argv + argc);
    SignalClock clock;
    // Sockets need one, although the events of none are awaited.
    const QCoreApplication application(argc, argv);
    const Options::Outcome outcome = Options::parse(arguments);
    if (!outcome.options) {
        if (outcome.isError) {
            complain("lumview_interpreter: " + outcome.text);
            return badCommandLine;
        }
        std::printf("%s\n", outcome.text.c_str());
        return 0;
    }
    const Options& options = *outcome.options;
    try {
        run(options, clock);
        return 0;
    } catch (const Problem& problem) {
        const std::string line = problem.line() > 0 ? std::to_string(problem.line()) + ':' : "";
        complain(options.file + ':' + line + ' ' + problem.what());
        return badProgram;
    } catch (const Interrupted& interruption) {
        return endedBySignal + interruption.signal;
    }
}

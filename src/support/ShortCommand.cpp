#include "support/ShortCommand.h"

#include "support/ChildProcess.h"

namespace kor::veltrano::daemons {

namespace {

constexpr int timeoutMs = 500;

} // namespace

CommandOutput runShortCommand(const QString& program, const QStringList& arguments)
{
    ChildProcess process;
    process.start(program, arguments, QIODevice::ReadOnly);
    CommandOutput output;
    output.isFinished = process.waitForFinished(timeoutMs);
    // A command that could not be started has nothing to read from.
    if (!process.isOpen()) {
        return output;
    }
    output.standardOutput = process.readAllStandardOutput();
    output.standardError = process.readAllStandardError();
    if (process.state() != QProcess::NotRunning) {
        process.kill();
        process.waitForFinished();
    }
    return output;
}

} // namespace kor::veltrano::daemons

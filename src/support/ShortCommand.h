// A command that is run while a request waits for its answer.
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

namespace kor::veltrano::daemons {

struct CommandOutput {
    // False where the command could not be started, or was ended because it took too long.
    bool isFinished = false;
    // What it has printed until it ended or was ended.
    QByteArray standardOutput;
    QByteArray standardError;

    // What is shown of it: the errors of a command that has not ended by itself tell why.
    QByteArray answer() const { return isFinished ? standardOutput : standardError; }
};

// Runs a program, found through the search path, without input and waits for it, half a second at
// the most. Its exit code plays no part. Any thread.
CommandOutput runShortCommand(const QString& program, const QStringList& arguments);

} // namespace kor::veltrano::daemons

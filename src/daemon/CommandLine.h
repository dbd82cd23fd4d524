// CommandLine: the daemon's options, taken apart before anything of Qt runs.
#pragma once

#include <QString>
#include <QStringList>

#include <optional>

namespace kor::veltrano::daemons {

struct CommandLine {
    qint32 verbosity = 0;
    bool isDaemon = false;
    // Each of these is empty where its option is missing or has an empty value.
    QString httpServer;
    QString configFile;
    QString resourcePath;
    QString veltrano;
};

// Takes the arguments behind the program's name; nothing where one of them is no option, so that
// the usage is due.
std::optional<CommandLine> parseCommandLine(const QStringList& arguments);

// The arguments of main, without the program's name, as the UTF-8 text that they are.
QStringList argumentsOf(int argc, char* argv[]);

// The usage text on standard output.
void printUsage();

} // namespace kor::veltrano::daemons

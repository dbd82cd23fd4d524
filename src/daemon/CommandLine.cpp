#include "daemon/CommandLine.h"

#include <iostream>

namespace kor::veltrano::daemons {

namespace {

// Takes the whole argument without any occurrence of the option's own text.
bool takeValue(const QString& argument, QLatin1String option, QString& value)
{
    if (!argument.startsWith(option)) {
        return false;
    }
    value = QString(argument).remove(option);
    return true;
}

// "-v" and its longer forms match everything that begins with them, so the longest comes first.
// The robot's address is the one option that begins with "-v" and is none of them.
bool takeVerbosity(const QString& argument, qint32& verbosity)
{
    if (argument.startsWith(QLatin1String("-veltrano="))) {
        return false;
    }
    if (argument.startsWith(QLatin1String("-vvv"))) {
        verbosity = 3;
    } else if (argument.startsWith(QLatin1String("-vv"))) {
        verbosity = 2;
    } else if (argument.startsWith(QLatin1String("-v"))) {
        verbosity = 1;
    } else {
        return false;
    }
    return true;
}

bool takeDaemonFlag(const QString& argument, bool& isDaemon)
{
    if (argument != QLatin1String("-daemon")) {
        return false;
    }
    isDaemon = true;
    return true;
}

} // namespace

std::optional<CommandLine> parseCommandLine(const QStringList& arguments)
{
    CommandLine line;
    for (const QString& argument : arguments) {
        const bool isKnown = takeVerbosity(argument, line.verbosity)
            || takeDaemonFlag(argument, line.isDaemon)
            || takeValue(argument, QLatin1String("-httpserver="), line.httpServer)
            || takeValue(argument, QLatin1String("-veltrano="), line.veltrano)
            || takeValue(argument, QLatin1String("-resourcepath="), line.resourcePath)
            || takeValue(argument, QLatin1String("-conf="), line.configFile);
        if (!isKnown) {
            return std::nullopt;
        }
    }
    return line;
}

QStringList argumentsOf(int argc, char* argv[])
{
    // The locale is not set yet, so fromLocal8Bit would garble everything beyond ASCII.
    QStringList arguments;
    for (int i = 1; i < argc; ++i) {
        arguments.append(QString::fromUtf8(argv[i]));
    }
    return arguments;
}

void printUsage()
{
    std::cout
        << "tessarad version "
        << "20190319" << std::endl
        << "tessarad [OPTIONS]" << std::endl
        << "options:" << std::endl
        << "-v         : verbose" << std::endl
        << "-vv        : more verbose" << std::endl
        << "-vvv       : more and more verbose" << std::endl
        << "-veltrano=address  : RPC server address (default 127.0.0.1:12080)" << std::endl
        << "-daemon    : run as daemon" << std::endl
        << "-httpserver=XXXX:YYYY : listen at address XXXX at port XXXX (default is 0.0.0.0:8080)"
        << std::endl
        << "-resourcepath=XXXX  : where to find the resources" << std::endl
        << "-conf=XXXX : where to find the configuration file (default "
           "/etc/veltrano/tessarad.conf)"
        << std::endl;
}

} // namespace kor::veltrano::daemons

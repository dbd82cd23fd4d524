// veltrano-sim: the RPC server of a simulated robot.

#include "ClientMethods.h"
#include "CommandLog.h"
#include "CommandMethods.h"
#include "ControlDoor.h"
#include "ControlMethods.h"
#include "Options.h"
#include "RpcServer.h"
#include "Simulation.h"
#include "SimulationClock.h"
#include "StateMethods.h"
#include "StopSignals.h"
#include "WorldFile.h"

#include <QCoreApplication>

#include <csignal>
#include <cstdio>

using namespace kor::veltrano::sim;

namespace {

// Tests and scripts wait for these lines, so they leave at once, and their form is fixed.
void say(const QString& text)
{
    std::printf("%s\n", qPrintable(text));
    std::fflush(stdout);
}

int fail(const QString& text)
{
    std::fprintf(stderr, "veltrano-sim: %s\n", qPrintable(text));
    return 1;
}

QString cannotListen(const HostPort& where, const QString& reason)
{
    return QStringLiteral("cannot listen on %1: %2").arg(where.text(), reason);
}

int run(const QCoreApplication& application, const Options& options)
{
    const QString path = options.worldFile.isEmpty() ? builtInWorldPath() : options.worldFile;
    const WorldOutcome outcome = readWorld(path);
    if (!outcome.world) {
        return fail(outcome.error);
    }
    Simulation simulation(*outcome.world, options.seed);
    CommandLog log;
    RpcServer server(simulation, log, options.seed);
    SimulationClock clock(simulation, server);

    ControlMethods methods;
    addStateMethods(methods, simulation, server);
    addCommandMethods(methods, log);
    addClientMethods(methods, server);
    ControlDoor door(methods);

    const StopSignals signals;
    const auto quit = &QCoreApplication::quit;
    QObject::connect(&signals, &StopSignals::stopRequested, &application, quit);
    QObject::connect(&door, &ControlDoor::quitRequested, &application, quit);
    QObject::connect(&door, &ControlDoor::requested, &clock, &SimulationClock::catchUp);

    const QString refusal = server.listen(options.listen);
    if (!refusal.isEmpty()) {
        return fail(cannotListen(options.listen, refusal));
    }
    const QString doorRefusal = options.control ? door.listen(*options.control) : QString();
    if (!doorRefusal.isEmpty()) {
        return fail(cannotListen(*options.control, doorRefusal));
    }
    say(QStringLiteral("veltrano-sim: listening on %1").arg(server.address().text()));
    if (options.control) {
        say(QStringLiteral("veltrano-sim: control door on %1").arg(door.address().text()));
    }
    return QCoreApplication::exec();
}

} // namespace

int main(int argc, char* argv[])
{
    std::signal(SIGPIPE, SIG_IGN);
    const QCoreApplication application(argc, argv);
    const Options::Outcome outcome = Options::parse(QCoreApplication::arguments());
    if (!outcome.options) {
        if (outcome.isError) {
            return fail(outcome.text);
        }
        say(outcome.text);
        return 0;
    }
    return run(application, *outcome.options);
}

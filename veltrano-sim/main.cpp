// veltrano-sim: the RPC server of a simulated robot.

#include "ClientMethods.h"
#include "CommandFile.h"
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

constexpr int longestEndMs = 500;

// Tests and scripts wait for these lines, so they leave at once, and their form is fixed.
void say(const QString& text)
{
    std::printf("%s\n", qPrintable(text));
    std::fflush(stdout);
}

void complain(const QString& text)
{
    std::fprintf(stderr, "veltrano-sim: %s\n", qPrintable(text));
}

int fail(const QString& text)
{
    complain(text);
    return 1;
}

QString cannotListen(const HostPort& where, const QString& reason)
{
    return QStringLiteral("cannot listen on %1: %2").arg(where.text(), reason);
}

// Opens the door for clients and, where it is wanted, that for tests. As the one below, it gives
// the reason of a failure, else nothing.
QString openDoors(const Options& options, RpcServer& server, ControlDoor& door)
{
    const QString refusal = server.listen(options.listen);
    if (!refusal.isEmpty()) {
        return cannotListen(options.listen, refusal);
    }
    const QString doorRefusal = options.control ? door.listen(*options.control) : QString();
    return doorRefusal.isEmpty() ? QString() : cannotListen(*options.control, doorRefusal);
}

QString openRecord(const Options& options, CommandFile& record, CommandLog& log)
{
    if (options.record.isEmpty()) {
        return {};
    }
    log.handOnTo([&record](const QJsonObject& command) { record.write(command); });
    return record.open(options.record);
}

int run(const QCoreApplication& application, const Options& options)
{
    const WorldOutcome outcome = readWorld(worldPath(options.world));
    if (!outcome.world) {
        return fail(outcome.error);
    }
    CommandFile record(complain);
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

    QString refusal = openDoors(options, server, door);
    if (refusal.isEmpty()) {
        // Only now, so that a second start by mistake leaves the first one's record alone.
        refusal = openRecord(options, record, log);
    }
    if (!refusal.isEmpty()) {
        return fail(refusal);
    }
    say(QStringLiteral("veltrano-sim: listening on %1").arg(server.address().text()));
    if (options.control) {
        say(QStringLiteral("veltrano-sim: control door on %1").arg(door.address().text()));
    }
    const int code = QCoreApplication::exec();
    // What clients had sent by then is still recorded, but they cannot hold up the end.
    QCoreApplication::processEvents(QEventLoop::AllEvents, longestEndMs);
    return code;
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

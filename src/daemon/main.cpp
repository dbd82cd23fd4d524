// The daemon from its first to its last act, in the order that everything else relies on.

#include "config/ConfigFile.h"
#include "daemon/CommandLine.h"
#include "daemon/Instances.h"
#include "daemon/MyLogHandler.h"
#include "daemon/SignalHandler.h"
#include "daemon/StandardStreams.h"
#include "daemon/StartConfiguration.h"
#include "daemon/StopRequests.h"
#include "http/Listener.h"
#include "robot/MyCom.h"

#include "kor/veltrano/api2/shutdown.h"

#include <QCoreApplication>
#include <QTimer>

#include <memory>

#ifdef __GLIBC__
#include <malloc.h>
#endif

using namespace kor::veltrano::daemons;

namespace {

// The robot's events reach the daemon this often, on the main thread.
constexpr int eventPumpIntervalMs = 100;

// By default the C library keeps a heap for nearly every thread that answers requests, and each of
// them holds on to what the largest image has taken: twice the memory, and growing for hours.
void limitHeaps()
{
#ifdef __GLIBC__
    constexpr int heapCount = 2;
    mallopt(M_ARENA_MAX, heapCount);
#endif
}

void connectSignals(const SignalHandler& signalHandler)
{
    for (const auto signal :
         {&SignalHandler::sigHup, &SignalHandler::sigTerm, &SignalHandler::sigInt}) {
        QObject::connect(&signalHandler, signal, qApp, &QCoreApplication::quit);
    }
}

void connectLog(const SignalHandler& signalHandler)
{
    QObject::connect(&signalHandler, &SignalHandler::log, logHandler,
                     QOverload<QString, int>::of(&MyLogHandler::log));
}

std::unique_ptr<QTimer> startEventPump()
{
    auto eventPump = std::make_unique<QTimer>();
    QObject::connect(eventPump.get(), &QTimer::timeout, [] { com->processEvents(); });
    eventPump->start(eventPumpIntervalMs);
    return eventPump;
}

int runDaemon(const CommandLine& commandLine, int argc, char* argv[])
{
    QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("tessarad"));

    readSettings(configFileName(commandLine));
    mergeIntoSettings(commandLine);
    printSettings();

    auto signalHandler = std::make_unique<SignalHandler>();
    SignalHandler::instance = signalHandler.get();
    StopRequests stopRequests;
    stopRequests.registerRoutine();
    signalHandler->start(QThread::InheritPriority);
    connectSignals(*signalHandler);

    buildInstances(commandLine);
    connectLog(*signalHandler);
    startListener(settings.value(QStringLiteral("Network/win_httpserver"),
                                 QStringLiteral("http://127.0.0.1:80")));
    auto eventPump = startEventPump();
    stopRequests.startDelivery();

    const int exitCode = QCoreApplication::exec();

    takeDownInstances();
    kor::veltrano::api2::shutdown();
    eventPump.reset();
    signalHandler.reset();
    return exitCode;
}

} // namespace

int main(int argc, char* argv[])
{
    limitHeaps();
    prepareStandardStreams();
    const auto commandLine = parseCommandLine(argumentsOf(argc, argv));
    if (!commandLine) {
        printUsage();
        return 0;
    }
    return runDaemon(*commandLine, argc, argv);
}

#include "daemon/StopRequests.h"

#include "daemon/SignalHandler.h"

#include <QtGlobal>

#ifdef Q_OS_WIN
#include <windows.h>
#else
#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#endif

namespace kor::veltrano::daemons {

#ifdef Q_OS_WIN

namespace {

BOOL WINAPI routine(DWORD type)
{
    return SignalHandler::consoleCtrlHandler(type) ? TRUE : FALSE;
}

} // namespace

void StopRequests::registerRoutine()
{
    SetConsoleCtrlHandler(routine, TRUE);
}

// The system calls the routine on a thread of its own, and SignalHandler's thread keeps a number
// that arrives before its loop runs.
void StopRequests::startDelivery() { }

#else

namespace {

// Open until the process ends, as the signal handlers are registered until then.
int pipeEnds[2] = {-1, -1};

char eventOf(int signal)
{
    switch (signal) {
    case SIGINT:
        return 0;
    case SIGQUIT:
        return 1;
    case SIGHUP:
        return 2;
    default:
        return 6;
    }
}

void writeEvent(int signal)
{
    const int savedErrno = errno;
    const char event = eventOf(signal);
    // A full pipe holds more requests than anyone can act on.
    [[maybe_unused]] const ssize_t written = write(pipeEnds[1], &event, 1);
    errno = savedErrno;
}

// Returns to the event loop in between, however fast requests come: it must get to act on the
// first.
void deliverEvents()
{
    char events[64];
    const ssize_t count = read(pipeEnds[0], events, sizeof events);
    for (ssize_t i = 0; i < count; ++i) {
        SignalHandler::consoleCtrlHandler(static_cast<unsigned char>(events[i]));
    }
}

} // namespace

void StopRequests::registerRoutine()
{
    if (pipe2(pipeEnds, O_CLOEXEC | O_NONBLOCK) != 0) {
        qWarning("Stop requests can't be handled: no pipe");
        return;
    }
    struct sigaction action = {};
    action.sa_handler = writeEvent;
    action.sa_flags = SA_RESTART;
    for (const int signal : {SIGINT, SIGQUIT, SIGHUP, SIGTERM}) {
        sigaction(signal, &action, nullptr);
    }
}

void StopRequests::startDelivery()
{
    notifier.reset(new QSocketNotifier(pipeEnds[0], QSocketNotifier::Read));
    QObject::connect(notifier.data(), &QSocketNotifier::activated, notifier.data(),
                     [] { deliverEvents(); });
}

#endif

} // namespace kor::veltrano::daemons

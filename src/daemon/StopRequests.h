// StopRequests: where the operating system's requests to stop come in.
//
// A local of main, on the main thread. From registerRoutine() on, no request ends the process or is
// lost; they are passed to SignalHandler::consoleCtrlHandler() from startDelivery() on, when all
// connections are made: SignalHandler acts on one request only, and its signals must arrive.
//
// POSIX: a signal handler may do almost nothing, so it writes the event's number into a pipe that
// the main thread's event loop reads. SIGINT is event 0, SIGQUIT 1, SIGHUP 2, SIGTERM 6. Windows:
// the console control routine, on a thread of the system's own.
//
// The registration is never taken back: a request in the last moments of the process is swallowed.
#pragma once

#include <QScopedPointer>
#include <QSocketNotifier>

namespace kor::veltrano::daemons {

class StopRequests
{
public:
    void registerRoutine();
    void startDelivery();

private:
    QScopedPointer<QSocketNotifier> notifier;
};

} // namespace kor::veltrano::daemons

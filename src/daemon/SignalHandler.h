// SignalHandler: turns a request of the operating system to stop into the end of the event loop.
//
// A local of main. The request calls consoleCtrlHandler(), which may be on any thread; that ends
// the event loop of this thread with the event's number, and this thread tells the main thread
// through queued signals.
//
//   waiting --consoleCtrlHandler(event in the table)--> log(name, 1), sigTerm --> finished
//   waiting --any other event--> waiting
//
// One event ends it: a second request during the shutdown finds nobody who listens.
#pragma once

#include <QString>
#include <QThread>

namespace kor::veltrano::daemons {

class SignalHandler : public QThread
{
    Q_OBJECT

public:
    SignalHandler();
    // Ends the thread and waits for it.
    ~SignalHandler() override;
    SignalHandler(const SignalHandler&) = delete;
    SignalHandler& operator=(const SignalHandler&) = delete;

    // The one object, set by main before the routine is registered; null when there is none.
    static SignalHandler* instance;

    // The routine for the operating system's requests: 0 Ctrl-C, 1 Ctrl-Break, 2 console closed,
    // 5 logoff, 6 system shutdown. Always true, also for events that are not acted on, so that the
    // system's default handler never ends the process on the spot.
    static bool consoleCtrlHandler(unsigned long type);

public Q_SLOTS:
    // Places for what a system may want to do about each signal; all empty.
    void handleSigHup();
    void handleSigTerm();
    void handleSigInt();

Q_SIGNALS:
    // sigHup and sigInt are never emitted: every event takes the way of sigTerm.
    void sigHup();
    void sigTerm();
    void sigInt();
    void log(QString message, int level);

protected:
    void run() override;
};

} // namespace kor::veltrano::daemons

#include "StopSignals.h"

#include <QSocketNotifier>

#include <array>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <unistd.h>

namespace kor::veltrano::sim {

namespace {

std::array<int, 2> pipeEnds{-1, -1};

void writePipe(int)
{
    const int savedErrno = errno;
    const char byte = 0;
    // A full pipe holds a stop request already.
    [[maybe_unused]] const ssize_t written = write(pipeEnds[1], &byte, 1);
    errno = savedErrno;
}

} // namespace

StopSignals::StopSignals(QObject* parent) : QObject(parent)
{
    if (pipe2(pipeEnds.data(), O_CLOEXEC | O_NONBLOCK) != 0) {
        qFatal("Error: cannot create the pipe for stop signals");
    }
    notifier = std::make_unique<QSocketNotifier>(pipeEnds[0], QSocketNotifier::Read);
    connect(notifier.get(), &QSocketNotifier::activated, this, &StopSignals::readPipe);

    struct sigaction action = {};
    action.sa_handler = writePipe;
    action.sa_flags = SA_RESTART;
    sigaction(SIGINT, &action, nullptr);
    sigaction(SIGTERM, &action, nullptr);
}

StopSignals::~StopSignals() = default;

void StopSignals::readPipe()
{
    char byte = 0;
    if (read(pipeEnds[0], &byte, 1) == 1) {
        Q_EMIT stopRequested();
    }
}

} // namespace kor::veltrano::sim

#include "support/ChildProcess.h"

#ifdef Q_OS_LINUX
#include <linux/close_range.h>
#include <sys/syscall.h>
#include <unistd.h>
#endif

namespace kor::veltrano::daemons {

ChildProcess::ChildProcess(QObject* parent) : QProcess(parent)
{
    // Opened for reading alone, a process still has a pipe as its input, which is never closed.
    setStandardInputFile(nullDevice());
}

// Runs in the child, between fork and exec: nothing but system calls.
void ChildProcess::setupChildProcess()
{
#ifdef Q_OS_LINUX
    constexpr unsigned int firstBeyondStandardStreams = 3;
    syscall(SYS_close_range, firstBeyondStandardStreams, ~0U, CLOSE_RANGE_CLOEXEC);
#endif
}

} // namespace kor::veltrano::daemons

#include "daemon/StandardStreams.h"

#include <QtGlobal>

#ifndef Q_OS_WIN
#include <fcntl.h>
#include <unistd.h>

#include <csignal>
#endif

namespace kor::veltrano::daemons {

void prepareStandardStreams()
{
#ifndef Q_OS_WIN
    std::signal(SIGPIPE, SIG_IGN);
    // open() gives the lowest free number, so filling stops as soon as all three are taken.
    int descriptor = 0;
    do {
        descriptor = open("/dev/null", O_RDWR);
    } while (descriptor >= 0 && descriptor <= STDERR_FILENO);
    if (descriptor > STDERR_FILENO) {
        close(descriptor);
    }
#endif
}

} // namespace kor::veltrano::daemons

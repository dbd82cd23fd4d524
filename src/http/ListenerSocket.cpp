#include "http/ListenerSocket.h"

#include <QtGlobal>

#ifdef Q_OS_LINUX
#include <netinet/in.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <fcntl.h>

#include <filesystem>
#include <optional>
#include <string>
#endif

namespace kor::veltrano::daemons {

#ifdef Q_OS_LINUX

namespace {

bool isListening(int descriptor)
{
    int listening = 0;
    socklen_t size = sizeof(listening);
    return getsockopt(descriptor, SOL_SOCKET, SO_ACCEPTCONN, &listening, &size) == 0
        && listening != 0;
}

// Of a TCP socket over IPv4 or IPv6; 0 for anything else.
int localPort(int descriptor)
{
    sockaddr_storage address = {};
    socklen_t size = sizeof(address);
    if (getsockname(descriptor, reinterpret_cast<sockaddr*>(&address), &size) != 0) {
        return 0;
    }
    if (address.ss_family == AF_INET) {
        return ntohs(reinterpret_cast<const sockaddr_in*>(&address)->sin_port);
    }
    if (address.ss_family == AF_INET6) {
        return ntohs(reinterpret_cast<const sockaddr_in6*>(&address)->sin6_port);
    }
    return 0;
}

std::optional<int> findListeningSocket(int port)
{
    std::error_code error;
    for (const auto& entry : std::filesystem::directory_iterator("/proc/self/fd", error)) {
        const int descriptor = std::stoi(entry.path().filename().string());
        if (isListening(descriptor) && localPort(descriptor) == port) {
            return descriptor;
        }
    }
    return std::nullopt;
}

// A socket in the abstract namespace under a name that the kernel chooses, so nobody connects: an
// accept on it only ever says "try again".
int openIdleListeningSocket()
{
    const int descriptor = socket(AF_UNIX, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0);
    sockaddr_un address = {};
    address.sun_family = AF_UNIX;
    if (bind(descriptor, reinterpret_cast<sockaddr*>(&address), sizeof(address.sun_family)) != 0
        || listen(descriptor, 1) != 0) {
        close(descriptor);
        return -1;
    }
    return descriptor;
}

} // namespace

bool silenceListeningSocket(int port)
{
    const auto listeningSocket = findListeningSocket(port);
    if (!listeningSocket) {
        return false;
    }
    const int idleSocket = openIdleListeningSocket();
    if (idleSocket < 0) {
        return false;
    }
    const bool isReplaced = dup3(idleSocket, *listeningSocket, O_CLOEXEC) >= 0;
    close(idleSocket);
    return isReplaced;
}

#else

bool silenceListeningSocket(int)
{
    return false;
}

#endif

} // namespace kor::veltrano::daemons

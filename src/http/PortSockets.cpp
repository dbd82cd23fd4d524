#include "http/PortSockets.h"

#include <QtGlobal>

#ifdef Q_OS_LINUX
#include <netinet/in.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <fcntl.h>

#include <filesystem>
#include <string>
#include <thread>
#include <vector>
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

// Of a TCP socket over IPv4 or IPv6; 0, which is nobody's port, for anything else.
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

enum class Kind { Listening, Connected };

std::vector<int> openDescriptors()
{
    std::vector<int> descriptors;
    std::error_code error;
    for (const auto& entry : std::filesystem::directory_iterator("/proc/self/fd", error)) {
        descriptors.push_back(std::stoi(entry.path().filename().string()));
    }
    return descriptors;
}

std::vector<int> findSockets(int port, Kind kind)
{
    std::vector<int> sockets;
    for (const int descriptor : openDescriptors()) {
        if (port > 0 && localPort(descriptor) == port
            && isListening(descriptor) == (kind == Kind::Listening)) {
            sockets.push_back(descriptor);
        }
    }
    return sockets;
}

// Shuts the given direction of all connections and waits for the library to close them, which it
// does where it next looks at them.
bool shutAndWait(int port, int direction, std::chrono::milliseconds timeout)
{
    const auto deadline = std::chrono::steady_clock::now() + timeout;
    for (;;) {
        const std::vector<int> connections = findSockets(port, Kind::Connected);
        if (connections.empty()) {
            return true;
        }
        if (std::chrono::steady_clock::now() >= deadline) {
            return false;
        }
        for (const int connection : connections) {
            shutdown(connection, direction);
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
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

std::set<int> listeningPorts()
{
    std::set<int> ports;
    for (const int descriptor : openDescriptors()) {
        if (isListening(descriptor)) {
            ports.insert(localPort(descriptor));
        }
    }
    ports.erase(0);
    return ports;
}

bool silenceListeningSocket(int port)
{
    const std::vector<int> listeningSockets = findSockets(port, Kind::Listening);
    const int idleSocket = openIdleListeningSocket();
    if (listeningSockets.empty() || idleSocket < 0) {
        close(idleSocket);
        return false;
    }
    const bool isReplaced = dup3(idleSocket, listeningSockets.front(), O_CLOEXEC) >= 0;
    close(idleSocket);
    return isReplaced;
}

bool endConnections(int port, std::chrono::milliseconds grace)
{
    return shutAndWait(port, SHUT_RD, grace) || shutAndWait(port, SHUT_RDWR, grace);
}

#else

std::set<int> listeningPorts()
{
    return {};
}

bool silenceListeningSocket(int)
{
    return false;
}

bool endConnections(int, std::chrono::milliseconds)
{
    return false;
}

#endif

} // namespace kor::veltrano::daemons

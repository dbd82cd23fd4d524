#include "Socket.h"

#include <cerrno>

#include <linux/sockios.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/ioctl.h>
#include <unistd.h>

namespace kor::veltrano::api2::detail {

namespace {

// Commands are small: more than this waiting inside the kernel would only be late.
constexpr int sendBufferBytes = 64 * 1024;

bool isTransient(int error)
{
    return error == EAGAIN || error == EWOULDBLOCK || error == EINTR;
}

} // namespace

Socket::Socket(const Endpoint& endpoint)
    : fd(::socket(endpoint.address.ss_family, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0)),
      received(readBytes)
{
    const int on = 1;
    ::setsockopt(fd, IPPROTO_TCP, TCP_NODELAY, &on, sizeof on);
    ::setsockopt(fd, SOL_SOCKET, SO_SNDBUF, &sendBufferBytes, sizeof sendBufferBytes);
    const auto* address = reinterpret_cast<const sockaddr*>(&endpoint.address);
    if (::connect(fd, address, endpoint.size) != 0 && errno != EINPROGRESS && fd >= 0) {
        ::close(fd);
        fd = -1;
    }
}

Socket::~Socket()
{
    if (fd >= 0) {
        ::close(fd);
    }
}

bool Socket::isConnected() const
{
    int error = 0;
    socklen_t size = sizeof error;
    return ::getsockopt(fd, SOL_SOCKET, SO_ERROR, &error, &size) == 0 && error == 0;
}

std::optional<QByteArray> Socket::read()
{
    const ssize_t count = ::recv(fd, received.data(), received.size(), 0);
    if (count == 0 || (count < 0 && !isTransient(errno))) {
        return std::nullopt;
    }
    return QByteArray(received.data(), count < 0 ? 0 : static_cast<int>(count));
}

bool Socket::write(QByteArray* bytes)
{
    while (!bytes->isEmpty()) {
        const ssize_t count =
            ::send(fd, bytes->constData(), static_cast<std::size_t>(bytes->size()), MSG_NOSIGNAL);
        if (count < 0) {
            return isTransient(errno);
        }
        bytes->remove(0, static_cast<int>(count));
    }
    return true;
}

void Socket::discardUnsent()
{
    int untaken = 0;
    // Only then, because it makes the other side see a reset instead of an orderly end.
    if (::ioctl(fd, SIOCOUTQ, &untaken) == 0 && untaken > 0) {
        const linger atOnce{1, 0};
        ::setsockopt(fd, SOL_SOCKET, SO_LINGER, &atOnce, sizeof atOnce);
    }
}

} // namespace kor::veltrano::api2::detail

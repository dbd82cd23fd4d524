#include "ScriptedServer.h"

#include <cstdint>
#include <stdexcept>
#include <utility>

#include <arpa/inet.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

ScriptedServer::ScriptedServer()
{
    listen();
}

ScriptedServer::~ScriptedServer()
{
    stopListening();
}

QByteArray ScriptedServer::address() const
{
    return "127.0.0.1:" + QByteArray::number(listeningPort);
}

ScriptedPeer ScriptedServer::accept()
{
    if (auto peer = acceptWithin(std::chrono::seconds(20))) {
        return std::move(*peer);
    }
    throw std::runtime_error("no connection from the client");
}

std::optional<ScriptedPeer> ScriptedServer::acceptWithin(std::chrono::milliseconds time)
{
    pollfd polled{descriptor, POLLIN, 0};
    if (::poll(&polled, 1, static_cast<int>(time.count())) <= 0) {
        return std::nullopt;
    }
    return ScriptedPeer(::accept4(descriptor, nullptr, nullptr, SOCK_CLOEXEC));
}

ScriptedPeer ScriptedServer::acceptAndGreet()
{
    ScriptedPeer peer = accept();
    peer.greet();
    return peer;
}

void ScriptedServer::stopListening()
{
    if (descriptor >= 0) {
        ::close(std::exchange(descriptor, -1));
    }
}

void ScriptedServer::listenAgain()
{
    listen();
}

void ScriptedServer::listen()
{
    descriptor = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    const int on = 1;
    ::setsockopt(descriptor, SOL_SOCKET, SO_REUSEADDR, &on, sizeof on);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    address.sin_port = htons(static_cast<std::uint16_t>(listeningPort));
    auto* generic = reinterpret_cast<sockaddr*>(&address);
    socklen_t size = sizeof address;
    if (::bind(descriptor, generic, size) != 0 || ::listen(descriptor, 16) != 0
        || ::getsockname(descriptor, generic, &size) != 0) {
        throw std::runtime_error("the test's server cannot listen");
    }
    listeningPort = ntohs(address.sin_port);
}

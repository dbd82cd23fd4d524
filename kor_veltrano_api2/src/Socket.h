// Socket: a TCP socket that never blocks. It belongs to one thread.
#pragma once

#include "HostLookup.h"

#include <QByteArray>

#include <optional>
#include <vector>

namespace kor::veltrano::api2::detail {

class Socket
{
public:
    // Starts to connect; the socket becomes writable when that has ended, well or badly.
    explicit Socket(const Endpoint& endpoint);
    ~Socket();
    Socket(const Socket&) = delete;
    Socket& operator=(const Socket&) = delete;

    // For poll(); -1 where there is no socket.
    int descriptor() const { return fd; }
    // What became of the attempt to connect, once the socket is writable.
    bool isConnected() const;

    // What has arrived, up to readBytes; empty where nothing has. Nothing where the connection has
    // ended.
    std::optional<QByteArray> read();
    // Sends what can be sent now of the bytes and removes it from them. False where the connection
    // has ended.
    bool write(QByteArray* bytes);
    // What the other side has not taken yet will not reach it after this object's end. Without this
    // the system goes on sending for minutes, and a command could arrive after the cable is back.
    void discardUnsent();

private:
    static constexpr int readBytes = 64 * 1024;

    int fd;
    std::vector<char> received;
};

} // namespace kor::veltrano::api2::detail

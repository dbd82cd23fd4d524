// Outbox: the commands that wait for the socket's thread.
//
// It takes lines only while the connection is up: whether a command is sent is decided when it is
// given. What was taken belongs to that connection alone and is forgotten when another opens. A
// plain value inside the hub, which guards it with its lock.
#pragma once

#include <QByteArray>

#include <string>

namespace kor::veltrano::api2::detail {

class Outbox
{
public:
    // More than this waits only if the server does not read: the connection must end.
    static constexpr std::size_t maxBytes = std::size_t(1024) * 1024;

    bool isOpen() const { return open; }
    bool isEmpty() const { return lines.empty(); }
    // Empty and open for lines of a new connection.
    void start();
    // Takes no more lines; those that wait stay until the connection's last attempt to send.
    void close() { open = false; }
    // True where the line was taken. One that does not fit closes the outbox.
    bool add(const QByteArray& line);
    // The waiting lines, in the order of adding.
    std::string take();

private:
    // No QByteArray, whose sharing between the callers' threads the thread sanitizer takes for a
    // race.
    std::string lines;
    bool open = false;
};

} // namespace kor::veltrano::api2::detail

// HttpClient: sends single requests to one server and waits for the replies.
//
// Created by a DaemonRobot and called on its thread alone. Each request has a connection of its
// own, so that a server that was restarted in between is found again.
#pragma once

#include <QByteArray>
#include <QTcpSocket>
#include <QUrl>

#include <string>

namespace kor::veltrano::lumview {

struct HttpReply {
    // Such as 200.
    int status = 0;
    QByteArray body;
};

class HttpClient
{
public:
    // Throws a Problem unless the address has the form http://HOST:PORT. A connection, and then a
    // whole reply, may each take as long as the timeout says.
    explicit HttpClient(const std::string& server, int timeoutMs = 5000);

    // Sends a request with a body of JSON, which may be empty. Throws a Problem when the whole
    // reply isn't there in time.
    HttpReply request(const QByteArray& method, const QByteArray& target, const QByteArray& body);

    // The address, for messages.
    const std::string& address() const { return serverAddress; }

private:
    // Waits for the whole reply and gives its bytes.
    QByteArray receive(QTcpSocket& socket) const;
    [[noreturn]] void fail(const QString& reason) const;

    int replyTimeoutMs;
    std::string serverAddress;
    QUrl url;
};

} // namespace kor::veltrano::lumview

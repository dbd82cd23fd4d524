#include "HttpClient.h"

#include "Problem.h"

#include <QElapsedTimer>
#include <QNetworkProxy>

#include <algorithm>

namespace kor::veltrano::lumview {

namespace {

constexpr int defaultPort = 80;
const char* const headEnd = "\r\n\r\n";

// The length of the reply with its head; -1 while that is not known.
qint64 replyLength(const QByteArray& received)
{
    const int end = received.indexOf(headEnd);
    const QByteArray lengthName = "\r\ncontent-length:";
    const int name = received.left(end).toLower().indexOf(lengthName);
    if (end < 0 || name < 0) {
        return -1;
    }
    const int value = name + int(lengthName.size());
    const int valueEnd = received.indexOf('\r', value);
    return end + qint64(qstrlen(headEnd)) + received.mid(value, valueEnd - value).trimmed().toInt();
}

} // namespace

HttpClient::HttpClient(const std::string& server, int timeoutMs)
    : replyTimeoutMs(timeoutMs),
      serverAddress(server),
      url(QString::fromStdString(server), QUrl::StrictMode)
{
    if (!url.isValid() || url.scheme() != QLatin1String("http") || url.host().isEmpty()) {
        throw Problem("expected the daemon's address as http://127.0.0.1:8080, but found \""
                      + server + '"');
    }
}

HttpReply HttpClient::request(const QByteArray& method, const QByteArray& target,
                              const QByteArray& body)
{
    QTcpSocket socket;
    // The daemon is near by, whatever the environment says of the way into the world.
    socket.setProxy(QNetworkProxy::NoProxy);
    socket.connectToHost(url.host(), quint16(url.port(defaultPort)));
    if (!socket.waitForConnected(replyTimeoutMs)) {
        fail(socket.errorString());
    }
    socket.setSocketOption(QAbstractSocket::LowDelayOption, 1);
    socket.write(method + ' ' + target + " HTTP/1.1\r\nHost: " + url.authority().toUtf8()
                 + "\r\nConnection: close\r\nContent-Type: application/json\r\nContent-Length: "
                 + QByteArray::number(body.size()) + headEnd + body);
    const QByteArray reply = receive(socket);
    const int bodyBegin = reply.indexOf(headEnd) + int(qstrlen(headEnd));
    return {reply.split(' ').value(1).toInt(), reply.mid(bodyBegin)};
}

QByteArray HttpClient::receive(QTcpSocket& socket) const
{
    QElapsedTimer timer;
    timer.start();
    QByteArray received;
    while (replyLength(received) < 0 || received.size() < replyLength(received)) {
        const int left = int(std::max<qint64>(replyTimeoutMs - timer.elapsed(), 0));
        if (!socket.waitForReadyRead(left)) {
            fail(socket.errorString());
        }
        received += socket.readAll();
    }
    return received;
}

void HttpClient::fail(const QString& reason) const
{
    throw Problem("the daemon at " + serverAddress + " doesn't answer: " + reason.toStdString());
}

} // namespace kor::veltrano::lumview

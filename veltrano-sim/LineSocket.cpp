#include "LineSocket.h"

#include "HostPort.h"

#include <QTcpSocket>

namespace kor::veltrano::sim {

LineSocket::LineSocket(QTcpSocket* connection, QObject* parent)
    : QObject(parent), socket(connection)
{
    socket->setParent(this);
    socket->setSocketOption(QAbstractSocket::LowDelayOption, 1);
    connect(socket, &QTcpSocket::readyRead, this, &LineSocket::read);
    connect(socket, &QTcpSocket::disconnected, this, &LineSocket::end);
}

void LineSocket::write(const QByteArray& bytes)
{
    if (!open) {
        return;
    }
    if (unsentBytes() + bytes.size() > mostUnsentBytes) {
        close();
        return;
    }
    socket->write(bytes);
}

void LineSocket::close()
{
    if (open) {
        end();
        socket->abort();
    }
}

void LineSocket::flush()
{
    socket->flush();
}

qint64 LineSocket::unsentBytes() const
{
    return socket->bytesToWrite();
}

QString LineSocket::peer() const
{
    return HostPort{socket->peerAddress(), socket->peerPort()}.text();
}

void LineSocket::read()
{
    if (!open) {
        return;
    }
    reader.append(socket->readAll());
    Q_EMIT bytesReceived();
    readLines();
    if (reader.isOverlong()) {
        close();
    }
}

void LineSocket::readLines()
{
    while (open) {
        const std::optional<QByteArray> line = reader.takeLine();
        if (!line) {
            return;
        }
        const std::optional<rpc::Message> message = rpc::parseMessage(*line);
        if (message) {
            Q_EMIT messageReceived(*message, line->size());
        } else {
            Q_EMIT malformedLineReceived();
            close();
        }
    }
}

void LineSocket::end()
{
    if (open) {
        open = false;
        Q_EMIT closed();
    }
}

} // namespace kor::veltrano::sim

// LineSocket: a connection that carries one JSON object a line, for the robot's clients and for
// those of the control door.
//
// It belongs to the session that speaks over it, which is deleted after closed(). A line that is
// too long or no JSON object ends the connection, and so does a reader that lets more than
// mostUnsentBytes pile up. Main thread only.
#pragma once

#include "rpc/LineReader.h"
#include "rpc/Message.h"

#include <QByteArray>
#include <QObject>

class QTcpSocket;

namespace kor::veltrano::sim {

class LineSocket : public QObject
{
    Q_OBJECT

public:
    static constexpr qint64 mostUnsentBytes = Q_INT64_C(16) * 1024 * 1024;

    // Takes the connected socket over.
    explicit LineSocket(QTcpSocket* connection, QObject* parent = nullptr);

    // Sends bytes as they are. Nothing happens once the connection has ended.
    void write(const QByteArray& bytes);
    // Ends the connection at once. closed() comes before this returns.
    void close();
    // Hands what has been written to the system without waiting for the event loop.
    void flush();

    bool isOpen() const { return open; }
    qint64 unsentBytes() const;
    // The address of the other side as host:port.
    QString peer() const;

Q_SIGNALS:
    // Something has arrived, a whole line or less.
    void bytesReceived();
    void messageReceived(const kor::veltrano::rpc::Message& message, int lineBytes);
    // A line was no JSON object; the connection is closed after this.
    void malformedLineReceived();
    // The connection has ended, from whichever side. Comes once.
    void closed();

private:
    void read();
    void readLines();
    void end();

    QTcpSocket* const socket;
    rpc::LineReader reader;
    bool open = true;
};

} // namespace kor::veltrano::sim

// RawClient: a client of the robot or of the control door that sends lines as a test writes them.
//
// Waiting handles events, so that the robot in the same thread answers meanwhile.
#pragma once

#include "rpc/LineReader.h"

#include <QByteArray>
#include <QJsonObject>
#include <QJsonValue>
#include <QTcpSocket>
#include <QTimer>

#include <vector>

namespace kor::veltrano::sim {

class RawClient
{
public:
    // Connects to a port of this machine.
    explicit RawClient(quint16 port);

    void send(const QByteArray& bytes);
    void sendLine(const QByteArray& json) { send(json + '\n'); }
    // Opens the conversation and waits until the whole present state has arrived; then forgets it.
    void open();
    // Waits for the next message that has not been waited for, whatever it is. As do those below,
    // it gives undefined and fails the test where none comes.
    QJsonValue next();
    // Waits for the next message of a method; those before it are forgotten.
    QJsonValue nextOf(const QString& method);
    // Waits for the answer to a request with this id; messages before it are kept.
    QJsonValue answer(int id);
    // Everything that has arrived before the answer to a ping that is sent now.
    std::vector<QJsonObject> untilPing();
    // From now on sends an empty line every second, so that the connection does not end by silence.
    void keepTalking();
    // Waits until the other side has ended the connection.
    bool waitForEnd();
    bool isConnected() const { return socket.state() == QAbstractSocket::ConnectedState; }
    // True where the system has taken over all that was to be sent.
    bool hasSent() const { return socket.bytesToWrite() == 0; }
    // Messages that have arrived and have not been waited for.
    const std::vector<QJsonObject>& messages() const { return received; }
    // Stops or goes on reading from the socket.
    void stopReading();

private:
    void read();

    QTcpSocket socket;
    rpc::LineReader reader;
    std::vector<QJsonObject> received;
    QTimer chatter;
    int lastPing = 1000;
};

// The methods of messages, in order; an answer has the empty text.
std::vector<std::string> methodsOf(const std::vector<QJsonObject>& messages);

} // namespace kor::veltrano::sim

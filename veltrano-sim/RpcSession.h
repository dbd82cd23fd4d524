// RpcSession: the robot's side of one client's connection.
//
// The server creates it for each connection and deletes it after closed(). Main thread only.
//
//   silent   -- hello answered with the client's protocol --> up
//   any      -- 5 s without a byte, a line that is no message, an unread backlog --> closed
//
// Before it is up, requests are answered, but commands are ignored and no event is sent: a robot
// must not be moved by a client that does not know what it speaks to.
#pragma once

#include "DelayLine.h"
#include "LineSocket.h"

#include <QElapsedTimer>
#include <QJsonArray>
#include <QJsonObject>
#include <QObject>
#include <QStringList>
#include <QTimer>

namespace kor::veltrano::sim {

class Faults;

class RpcSession : public QObject
{
    Q_OBJECT

public:
    static constexpr int protocol = 1;
    static constexpr int silenceMs = 5000;

    // The devices whose data goes only to clients that have subscribed.
    static QStringList subscribable();

    // Takes the connected socket over. The faults, shared by all sessions, must outlive it.
    RpcSession(QTcpSocket* socket, int number, Faults& shared, QObject* parent = nullptr);

    // Counts connections from 1 on.
    int number() const { return clientNumber; }
    // True once hello has been answered.
    bool isUp() const { return up; }
    // True where the client has subscribed to "camera" or "laserRangeFinder".
    bool isSubscribed(const QString& device) const { return subscriptions.contains(device); }

    // Carries a command of subscription out. False where it is none.
    bool changeSubscription(const QString& method);

    // Sends bytes in their turn; they are delayed or dropped as the faults say.
    void send(const QByteArray& bytes);
    // The same for an event, which the faults may lose.
    void sendEvent(const QByteArray& eventLine);
    // Ends the connection.
    void close() { line.close(); }
    // What the control door shows of this client.
    QJsonObject show() const;

Q_SIGNALS:
    // The client is up and waits for the present state.
    void opened();
    // The client, which is up, has sent a notification.
    void commandReceived(const QString& method, const QJsonObject& params, int lineBytes);
    void closed();

private:
    void handle(const rpc::Message& message, int lineBytes);
    void answer(const rpc::Message& request);
    void answerHello(const rpc::Message& request);
    void obey(const rpc::Message& command, int lineBytes);
    void keepAnswer(const rpc::Message& received, int lineBytes);
    void limitMemory();

    const int clientNumber;
    Faults& faults;
    LineSocket line;
    DelayLine outgoing;
    DelayLine incoming;
    QTimer silence;
    QElapsedTimer age;
    QStringList subscriptions;
    QJsonArray answers;
    bool up = false;
};

} // namespace kor::veltrano::sim

// ScriptedPeer: one connection as the server of a test sees it.
//
// A test speaks through it line by line on its own thread, so that each step of a conversation
// stands in the test in order. Reads wait up to a deadline that no healthy run reaches and throw
// when it passes, which fails the test.
#pragma once

#include <QByteArray>
#include <QJsonObject>
#include <QString>
#include <QStringList>

#include "rpc/LineReader.h"

#include <chrono>
#include <optional>

class ScriptedPeer
{
public:
    explicit ScriptedPeer(int connectedDescriptor) : descriptor(connectedDescriptor) { }
    ScriptedPeer(ScriptedPeer&& other) noexcept;
    ScriptedPeer& operator=(ScriptedPeer&& other) noexcept;
    ~ScriptedPeer();

    // The next message of the client, pings included.
    QJsonObject readMessage();
    // The next message that is no ping; pings are answered on the way.
    QJsonObject readCommand();
    // Nothing where no message is there within the time.
    std::optional<QJsonObject> readMessageWithin(std::chrono::milliseconds time);

    void sendRaw(const QByteArray& bytes);
    void notify(const QString& method, const QJsonObject& params);
    // Text of a JSON value, which may stand on several lines.
    void notify(const QString& method, const char* params);
    void answer(const QJsonObject& request, const QJsonObject& result);
    // Reads the opening request and answers it as a server of protocol 1 does.
    void greet();
    // Returns when the client has handled all that was sent before, and gives the methods of the
    // notifications that it has sent meanwhile.
    QStringList sync();

    // True where the client ends the connection within the time; what it sends is thrown away.
    bool isEndedWithin(std::chrono::milliseconds time);
    void close();

private:
    // False where the deadline has passed.
    bool waitForInput(std::chrono::steady_clock::time_point deadline) const;
    // False at the connection's end.
    bool readSome();

    int descriptor;
    kor::veltrano::rpc::LineReader reader;
    int lastSync = 0;
};

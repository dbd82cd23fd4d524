#include "support/RawClient.h"

#include "support/waiting.h"

#include <QJsonDocument>

#include <algorithm>
#include <gtest/gtest.h>

namespace kor::veltrano::sim {

RawClient::RawClient(quint16 port)
{
    QObject::connect(&socket, &QTcpSocket::readyRead, [this] { read(); });
    socket.connectToHost(QStringLiteral("127.0.0.1"), port);
    EXPECT_TRUE(waitUntil([this] { return isConnected(); }));
}

void RawClient::send(const QByteArray& bytes)
{
    socket.write(bytes);
}

void RawClient::open()
{
    sendLine(R"({"jsonrpc":"2.0","id":1,"method":"hello","params":{"protocol":1}})");
    EXPECT_EQ(answer(1)["result"]["protocol"].toInt(), 1);
    untilPing();
}

QJsonValue RawClient::next()
{
    EXPECT_TRUE(waitUntil([this] { return !received.empty(); })) << "no message has come";
    if (received.empty()) {
        return QJsonValue::Undefined;
    }
    const QJsonObject message = received.front();
    received.erase(received.begin());
    return message;
}

QJsonValue RawClient::nextOf(const QString& method)
{
    while (true) {
        QJsonValue message = next();
        if (message.isUndefined() || message["method"] == method) {
            return message;
        }
    }
}

QJsonValue RawClient::answer(int id)
{
    const auto find = [this, id] {
        return std::find_if(received.begin(), received.end(),
                            [id](const QJsonObject& message) { return message["id"] == id; });
    };
    EXPECT_TRUE(waitUntil([this, &find] { return find() != received.end(); })) << "no answer";
    const auto found = find();
    if (found == received.end()) {
        return QJsonValue::Undefined;
    }
    const QJsonObject message = *found;
    received.erase(found);
    return message;
}

std::vector<QJsonObject> RawClient::untilPing()
{
    const QByteArray id = QByteArray::number(++lastPing);
    sendLine(R"({"jsonrpc":"2.0","method":"ping","id":)" + id + "}");
    answer(lastPing);
    return std::exchange(received, {});
}

void RawClient::keepTalking()
{
    QObject::connect(&chatter, &QTimer::timeout, [this] { send("\n"); });
    chatter.start(1000);
}

bool RawClient::waitForEnd()
{
    return waitUntil([this] { return socket.state() == QAbstractSocket::UnconnectedState; });
}

void RawClient::stopReading()
{
    // Qt fills its buffer up to this and then leaves the rest to the system.
    socket.setReadBufferSize(1);
    socket.disconnect();
}

void RawClient::read()
{
    reader.append(socket.readAll());
    while (const std::optional<QByteArray> line = reader.takeLine()) {
        received.push_back(QJsonDocument::fromJson(*line).object());
    }
}

std::vector<std::string> methodsOf(const std::vector<QJsonObject>& messages)
{
    std::vector<std::string> methods;
    methods.reserve(messages.size());
    for (const QJsonObject& message : messages) {
        methods.push_back(message["method"].toString().toStdString());
    }
    return methods;
}

} // namespace kor::veltrano::sim

#include "ScriptedPeer.h"

#include "rpc/Message.h"

#include <QJsonDocument>

#include <array>
#include <stdexcept>
#include <utility>

#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

namespace rpc = kor::veltrano::rpc;

namespace {

constexpr std::chrono::seconds patience(20);

} // namespace

ScriptedPeer::ScriptedPeer(ScriptedPeer&& other) noexcept
    : descriptor(std::exchange(other.descriptor, -1)),
      reader(std::move(other.reader)),
      lastSync(other.lastSync)
{
}

ScriptedPeer& ScriptedPeer::operator=(ScriptedPeer&& other) noexcept
{
    std::swap(descriptor, other.descriptor);
    std::swap(reader, other.reader);
    std::swap(lastSync, other.lastSync);
    return *this;
}

ScriptedPeer::~ScriptedPeer()
{
    close();
}

QJsonObject ScriptedPeer::readMessage()
{
    if (auto message = readMessageWithin(patience)) {
        return *message;
    }
    throw std::runtime_error("no message from the client");
}

QJsonObject ScriptedPeer::readCommand()
{
    for (;;) {
        QJsonObject message = readMessage();
        if (message["method"] != "ping") {
            return message;
        }
        answer(message, {});
    }
}

std::optional<QJsonObject> ScriptedPeer::readMessageWithin(std::chrono::milliseconds time)
{
    const auto deadline = std::chrono::steady_clock::now() + time;
    for (;;) {
        if (const auto line = reader.takeLine()) {
            return QJsonDocument::fromJson(*line).object();
        }
        if (!waitForInput(deadline)) {
            return std::nullopt;
        }
        if (!readSome()) {
            throw std::runtime_error("the client has ended the connection");
        }
    }
}

void ScriptedPeer::sendRaw(const QByteArray& bytes)
{
    int sent = 0;
    while (sent < bytes.size()) {
        const auto left = static_cast<std::size_t>(bytes.size() - sent);
        const ssize_t count = ::send(descriptor, bytes.constData() + sent, left, MSG_NOSIGNAL);
        if (count < 0) {
            // The client has ended the connection, which is for the test to notice by reading.
            return;
        }
        sent += static_cast<int>(count);
    }
}

void ScriptedPeer::notify(const QString& method, const QJsonObject& params)
{
    sendRaw(rpc::notificationLine(method, params));
}

void ScriptedPeer::notify(const QString& method, const char* params)
{
    const QByteArray oneLine = QByteArray(params).replace('\n', ' ');
    sendRaw(R"({"jsonrpc":"2.0","method":")" + method.toUtf8() + R"(","params":)" + oneLine
            + "}\n");
}

void ScriptedPeer::answer(const QJsonObject& request, const QJsonObject& result)
{
    sendRaw(rpc::resultLine(request["id"], result));
}

void ScriptedPeer::greet()
{
    answer(readMessage(), {{"protocol", 1}, {"robot", "scripted"}});
}

QStringList ScriptedPeer::sync()
{
    const QString id = QStringLiteral("sync %1").arg(++lastSync);
    sendRaw(rpc::requestLine(id, QStringLiteral("sync"), {}));
    QStringList methods;
    for (;;) {
        const QJsonObject message = readCommand();
        if (message["id"] == id) {
            return methods;
        }
        methods.append(message["method"].toString());
    }
}

bool ScriptedPeer::isEndedWithin(std::chrono::milliseconds time)
{
    const auto deadline = std::chrono::steady_clock::now() + time;
    while (waitForInput(deadline)) {
        if (!readSome()) {
            return true;
        }
    }
    return false;
}

void ScriptedPeer::close()
{
    if (descriptor >= 0) {
        ::close(std::exchange(descriptor, -1));
    }
}

bool ScriptedPeer::waitForInput(std::chrono::steady_clock::time_point deadline) const
{
    using std::chrono::milliseconds;
    const auto left = std::chrono::ceil<milliseconds>(deadline - std::chrono::steady_clock::now());
    pollfd polled{descriptor, POLLIN, 0};
    const auto timeout = static_cast<int>(std::max(left, milliseconds(0)).count());
    return ::poll(&polled, 1, timeout) > 0;
}

bool ScriptedPeer::readSome()
{
    std::array<char, 65536> bytes{};
    const ssize_t count = ::recv(descriptor, bytes.data(), bytes.size(), 0);
    if (count > 0) {
        reader.append(QByteArray(bytes.data(), static_cast<int>(count)));
    }
    return count > 0;
}

// The messages of the protocol: JSON-RPC 2.0, one object a line.
//
// Functions that write give a whole line with its LF; the one that reads takes a line without it.
#pragma once

#include <QByteArray>
#include <QJsonObject>
#include <QJsonValue>
#include <QString>

#include <optional>

namespace kor::veltrano::rpc {

// JSON-RPC's error code for a request whose method nobody knows.
constexpr int methodNotFound = -32601;
// JSON-RPC's error code for a request whose params do not fit its method.
constexpr int invalidParams = -32602;

// A method is a name of the protocol, which holds nothing that JSON would escape.
QByteArray notificationLine(const QString& method, const QJsonObject& params);
// The same from the text of a JSON object, for what is sent all the time: to build the object and
// to render it takes longer than all else that a command needs.
QByteArray notificationLineOf(const QByteArray& method, const QByteArray& params);
// params is left out where it is empty.
QByteArray requestLine(const QJsonValue& id, const QString& method, const QJsonObject& params);
QByteArray resultLine(const QJsonValue& id, const QJsonValue& result);
QByteArray errorLine(const QJsonValue& id, int code, const QString& message);

// One received message. A request has method and id, a notification only a method, an answer only
// an id with a result or an error.
struct Message {
    QString method;
    QJsonObject params;
    QJsonValue id = QJsonValue::Undefined;
    QJsonValue result = QJsonValue::Undefined;
    QJsonValue error = QJsonValue::Undefined;

    bool isNotification() const { return !method.isEmpty() && id.isUndefined(); }
    bool isRequest() const { return !method.isEmpty() && !id.isUndefined(); }
    bool isAnswer() const { return method.isEmpty() && !id.isUndefined(); }
};

// Nothing where the line is no JSON object: the connection must end.
std::optional<Message> parseMessage(const QByteArray& line);

} // namespace kor::veltrano::rpc

#include "Message.h"

#include <QJsonDocument>

namespace kor::veltrano::rpc {

namespace {

QByteArray line(QJsonObject message)
{
    message.insert(QStringLiteral("jsonrpc"), QStringLiteral("2.0"));
    return QJsonDocument(message).toJson(QJsonDocument::Compact) + '\n';
}

} // namespace

QByteArray notificationLine(const QString& method, const QJsonObject& params)
{
    return notificationLineOf(method.toUtf8(),
                              QJsonDocument(params).toJson(QJsonDocument::Compact));
}

QByteArray notificationLineOf(const QByteArray& method, const QByteArray& params)
{
    return R"({"jsonrpc":"2.0","method":")" + method + R"(","params":)" + params + "}\n";
}

QByteArray requestLine(const QJsonValue& id, const QString& method, const QJsonObject& params)
{
    QJsonObject message{{QStringLiteral("id"), id}, {QStringLiteral("method"), method}};
    if (!params.isEmpty()) {
        message.insert(QStringLiteral("params"), params);
    }
    return line(message);
}

QByteArray resultLine(const QJsonValue& id, const QJsonValue& result)
{
    return line({{QStringLiteral("id"), id}, {QStringLiteral("result"), result}});
}

QByteArray errorLine(const QJsonValue& id, int code, const QString& message)
{
    const QJsonObject error{{QStringLiteral("code"), code}, {QStringLiteral("message"), message}};
    return line({{QStringLiteral("id"), id}, {QStringLiteral("error"), error}});
}

std::optional<Message> parseMessage(const QByteArray& line)
{
    const QJsonDocument document = QJsonDocument::fromJson(line);
    if (!document.isObject()) {
        return std::nullopt;
    }
    const QJsonObject object = document.object();
    return Message{object.value(QStringLiteral("method")).toString(),
                   object.value(QStringLiteral("params")).toObject(),
                   object.value(QStringLiteral("id")), object.value(QStringLiteral("result")),
                   object.value(QStringLiteral("error"))};
}

} // namespace kor::veltrano::rpc

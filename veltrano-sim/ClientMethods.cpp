#include "ClientMethods.h"

#include "Bytes.h"
#include "ControlMethods.h"
#include "RpcServer.h"
#include "RpcSession.h"

#include <QJsonArray>
#include <QJsonDocument>

#include <limits>

namespace kor::veltrano::sim {

namespace {

constexpr qint64 longestDropMs = 3'600'000;
constexpr qint64 longestDelayMs = 60'000;
// Below what a client's connection may leave unsent, so that the bytes do not end it.
constexpr qint64 mostRawBytes = LineSocket::mostUnsentBytes * 3 / 4;

// The message is written as it was given, whatever the types of its members.
QByteArray scriptedLine(QJsonObject message)
{
    message.insert(QStringLiteral("jsonrpc"), QStringLiteral("2.0"));
    return QJsonDocument(message).toJson(QJsonDocument::Compact) + '\n';
}

ControlReply refusal(const Params& params)
{
    return ControlMethods::badParams(params.error());
}

ControlReply sendEvent(Params& params, RpcServer& server)
{
    QJsonObject message{{QStringLiteral("method"), params.value(QStringLiteral("method"))}};
    const QJsonValue given = params.optionalValue(QStringLiteral("params"));
    if (!params.error().isEmpty()) {
        return refusal(params);
    }
    if (!given.isUndefined()) {
        message.insert(QStringLiteral("params"), given);
    }
    for (RpcSession* const session : server.sessionsNow()) {
        session->sendEvent(scriptedLine(message));
    }
    return ControlReply::ok();
}

ControlReply sendRequest(Params& params, RpcServer& server)
{
    QJsonObject message{{QStringLiteral("method"), params.value(QStringLiteral("method"))},
                        {QStringLiteral("id"), params.value(QStringLiteral("id"))}};
    const QJsonValue given = params.optionalValue(QStringLiteral("params"));
    if (!params.error().isEmpty()) {
        return refusal(params);
    }
    if (!given.isUndefined()) {
        message.insert(QStringLiteral("params"), given);
    }
    for (RpcSession* const session : server.sessionsNow()) {
        session->send(scriptedLine(message));
    }
    return ControlReply::ok();
}

// The object that toBytes() takes, of those members that are there.
QJsonObject givenBytes(Params& params)
{
    QJsonObject given;
    for (const QString& name : {QStringLiteral("text"), QStringLiteral("base64")}) {
        const QJsonValue value = params.optionalValue(name);
        if (!value.isUndefined()) {
            given.insert(name, value);
        }
    }
    return given;
}

ControlReply sendRaw(Params& params, RpcServer& server)
{
    const std::optional<QByteArray> bytes = toBytes(givenBytes(params));
    const qint64 repeat = params.integer(QStringLiteral("repeat"), 1, mostRawBytes, 1);
    if (!bytes) {
        params.fail(QStringLiteral("either text or base64 must be given, as a text"));
    } else if (bytes->size() * repeat > mostRawBytes) {
        params.fail(QStringLiteral("all bytes together must be at most %1").arg(mostRawBytes));
    }
    if (!params.error().isEmpty()) {
        return refusal(params);
    }
    const QByteArray all = bytes->repeated(static_cast<int>(repeat));
    for (RpcSession* const session : server.sessionsNow()) {
        session->send(all);
    }
    return ControlReply::ok();
}

ControlReply drop(Params& params, RpcServer& server)
{
    const qint64 forMs = params.integer(QStringLiteral("forMs"), 0, longestDropMs);
    if (!params.error().isEmpty()) {
        return refusal(params);
    }
    server.drop(static_cast<int>(forMs));
    return ControlReply::ok();
}

ControlReply delay(Params& params, Faults& faults)
{
    const qint64 delayMs = params.integer(QStringLiteral("ms"), 0, longestDelayMs);
    if (!params.error().isEmpty()) {
        return refusal(params);
    }
    faults.delayMs = static_cast<int>(delayMs);
    return ControlReply::ok();
}

ControlReply lose(Params& params, Faults& faults)
{
    const double probability = params.number(QStringLiteral("probability"), 0, 1);
    if (!params.error().isEmpty()) {
        return refusal(params);
    }
    faults.loseProbability = probability;
    return ControlReply::ok();
}

ControlReply mute(Params& params, Faults& faults)
{
    const bool isOn = params.flag(QStringLiteral("on"));
    if (!params.error().isEmpty()) {
        return refusal(params);
    }
    faults.isMuted = isOn;
    return ControlReply::ok();
}

ControlReply setProtocol(Params& params, Faults& faults)
{
    const qint64 version =
        params.integer(QStringLiteral("version"), 0, std::numeric_limits<qint32>::max());
    if (!params.error().isEmpty()) {
        return refusal(params);
    }
    faults.protocol = static_cast<int>(version);
    return ControlReply::ok();
}

ControlReply list(Params& params, const RpcServer& server)
{
    if (!params.error().isEmpty()) {
        return refusal(params);
    }
    QJsonArray clients;
    for (const RpcSession* const session : server.sessions()) {
        clients.append(session->show());
    }
    return ControlReply::ok(
        {{QStringLiteral("clients"), clients}, {QStringLiteral("faults"), server.faults().show()}});
}

} // namespace

void addClientMethods(ControlMethods& methods, RpcServer& server)
{
    const auto add = [&methods, &server](const QString& name, auto method) {
        methods.add(name, [method, &server](Params& params) { return method(params, server); });
    };
    const auto addFault = [&methods, &server](const QString& name, auto method) {
        methods.add(name,
                    [method, &server](Params& params) { return method(params, server.faults()); });
    };
    add(QStringLiteral("clients.list"), list);
    add(QStringLiteral("clients.sendEvent"), sendEvent);
    add(QStringLiteral("clients.sendRequest"), sendRequest);
    add(QStringLiteral("clients.sendRaw"), sendRaw);
    add(QStringLiteral("clients.drop"), drop);
    addFault(QStringLiteral("clients.delay"), delay);
    addFault(QStringLiteral("clients.lose"), lose);
    addFault(QStringLiteral("clients.mute"), mute);
    addFault(QStringLiteral("clients.protocol"), setProtocol);
}

} // namespace kor::veltrano::sim

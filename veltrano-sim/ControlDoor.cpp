#include "ControlDoor.h"

#include "ControlMethods.h"
#include "LineSocket.h"

#include <QTcpSocket>

namespace kor::veltrano::sim {

namespace {

constexpr int parseError = -32700;

} // namespace

ControlDoor::ControlDoor(ControlMethods& table, QObject* parent) : QObject(parent), methods(table)
{
    connect(&server, &QTcpServer::newConnection, this, &ControlDoor::accept);
    methods.add(QStringLiteral("sim.quit"), [this](Params& params) {
        if (!params.error().isEmpty()) {
            return ControlMethods::badParams(params.error());
        }
        quitting = true;
        return ControlReply::ok();
    });
}

QString ControlDoor::listen(const HostPort& where)
{
    if (!server.listen(where.host, where.port)) {
        return server.errorString();
    }
    home = {where.host, server.serverPort()};
    return {};
}

void ControlDoor::accept()
{
    while (QTcpSocket* const socket = server.nextPendingConnection()) {
        auto* const line = new LineSocket(socket, this);
        connect(line, &LineSocket::messageReceived, this,
                [this, line](const rpc::Message& message) { answer(*line, message); });
        connect(line, &LineSocket::malformedLineReceived, this, [line] {
            line->write(rpc::errorLine(QJsonValue(), parseError,
                                       QStringLiteral("The line is no JSON object")));
            line->flush();
        });
        connect(line, &LineSocket::closed, line, &QObject::deleteLater);
    }
}

void ControlDoor::answer(LineSocket& line, const rpc::Message& request)
{
    if (request.method.isEmpty()) {
        return;
    }
    Q_EMIT requested();
    const ControlReply reply = methods.call(request.method, request.params);
    if (request.isRequest()) {
        line.write(reply.errorCode == 0
                       ? rpc::resultLine(request.id, reply.result)
                       : rpc::errorLine(request.id, reply.errorCode, reply.errorText));
    }
    if (quitting) {
        line.flush();
        Q_EMIT quitRequested();
    }
}

} // namespace kor::veltrano::sim

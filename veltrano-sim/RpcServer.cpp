#include "RpcServer.h"

#include "CommandLog.h"
#include "RpcSession.h"
#include "Simulation.h"

#include <QTcpSocket>

#include <algorithm>

namespace kor::veltrano::sim {

namespace {

constexpr int retryMs = 100;

QByteArray eventLine(const Event& event)
{
    return rpc::notificationLine(event.method, event.params);
}

} // namespace

RpcServer::RpcServer(Simulation& robot, CommandLog& commands, quint64 seed, QObject* parent)
    : QObject(parent), simulation(robot), log(commands), badness(seed)
{
    absence.setSingleShot(true);
    absence.setTimerType(Qt::PreciseTimer);
    connect(&absence, &QTimer::timeout, this, &RpcServer::comeBack);
    connect(&server, &QTcpServer::newConnection, this, &RpcServer::accept);
}

RpcServer::~RpcServer()
{
    // They use the faults, which are gone when the base class would delete them.
    qDeleteAll(sessionsNow());
}

QString RpcServer::listen(const HostPort& where)
{
    if (!server.listen(where.host, where.port)) {
        return server.errorString();
    }
    home = {where.host, server.serverPort()};
    return {};
}

void RpcServer::publish()
{
    for (const auto& device : simulation.devices()) {
        if (!device->hasNews()) {
            continue;
        }
        const std::vector<RpcSession*> audience = listeners(*device);
        if (audience.empty()) {
            device->dropNews();
            continue;
        }
        for (const Event& event : device->takeNews()) {
            const QByteArray line = eventLine(event);
            for (RpcSession* const session : audience) {
                session->sendEvent(line);
            }
        }
    }
}

void RpcServer::drop(int forMs)
{
    if (forMs > 0) {
        server.close();
        absence.start(forMs);
    }
    for (RpcSession* const session : sessionsNow()) {
        session->close();
    }
}

void RpcServer::accept()
{
    while (QTcpSocket* const socket = server.nextPendingConnection()) {
        auto* const session = new RpcSession(socket, ++lastNumber, badness, this);
        connections.push_back(session);
        connect(session, &RpcSession::opened, this, [this, session] { welcome(*session); });
        connect(session, &RpcSession::closed, this, [this, session] { forget(session); });
        connect(session, &RpcSession::commandReceived, this,
                [this, session](const QString& method, const QJsonObject& params, int lineBytes) {
                    obey(*session, method, params, lineBytes);
                });
    }
}

void RpcServer::welcome(RpcSession& session)
{
    for (const auto& device : simulation.devices()) {
        if (!device->subscription().isEmpty()) {
            continue;
        }
        for (const Event& event : device->state()) {
            session.sendEvent(eventLine(event));
        }
    }
}

void RpcServer::forget(RpcSession* session)
{
    connections.erase(std::remove(connections.begin(), connections.end(), session),
                      connections.end());
    session->deleteLater();
}

void RpcServer::obey(RpcSession& session, const QString& method, const QJsonObject& params,
                     int lineBytes)
{
    const bool isCarriedOut =
        session.changeSubscription(method) || simulation.command(method, params);
    log.add(session.number(), method, params, isCarriedOut, lineBytes);
}

std::vector<RpcSession*> RpcServer::listeners(const Device& device) const
{
    std::vector<RpcSession*> result;
    for (RpcSession* const session : connections) {
        const QString needed = device.subscription();
        if (session->isUp() && (needed.isEmpty() || session->isSubscribed(needed))) {
            result.push_back(session);
        }
    }
    return result;
}

void RpcServer::comeBack()
{
    // Somebody else may have taken the port meanwhile; it is tried until it is free again.
    if (!server.listen(home.host, home.port)) {
        absence.start(retryMs);
    }
}

} // namespace kor::veltrano::sim

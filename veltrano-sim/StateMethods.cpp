#include "StateMethods.h"

#include "ControlMethods.h"
#include "RpcServer.h"
#include "RpcSession.h"
#include "Simulation.h"

#include <algorithm>

namespace kor::veltrano::sim {

namespace {

QJsonObject subscriptionCounts(const RpcServer& server)
{
    QJsonObject counts;
    for (const QString& device : RpcSession::subscribable()) {
        const auto& sessions = server.sessions();
        counts.insert(device,
                      static_cast<int>(std::count_if(sessions.begin(), sessions.end(),
                                                     [&device](const RpcSession* session) {
                                                         return session->isSubscribed(device);
                                                     })));
    }
    return counts;
}

ControlReply get(Params& params, const Simulation& simulation, const RpcServer& server)
{
    if (!params.error().isEmpty()) {
        return ControlMethods::badParams(params.error());
    }
    QJsonObject state = simulation.show();
    state.insert(QStringLiteral("clients"), static_cast<int>(server.sessions().size()));
    state.insert(QStringLiteral("subscriptions"), subscriptionCounts(server));
    return ControlReply::ok(state);
}

// Clients hear at once of what a change has done.
ControlReply answerChange(const QString& refusal, RpcServer& server)
{
    if (!refusal.isEmpty()) {
        return ControlMethods::badParams(refusal);
    }
    server.publish();
    return ControlReply::ok();
}

ControlReply release(Params& params, Simulation& simulation, RpcServer& server)
{
    const QStringList devices = params.texts(QStringLiteral("devices"));
    if (!params.error().isEmpty()) {
        return ControlMethods::badParams(params.error());
    }
    return answerChange(simulation.release(devices), server);
}

} // namespace

void addStateMethods(ControlMethods& methods, Simulation& simulation, RpcServer& server)
{
    methods.add(QStringLiteral("state.get"),
                [&simulation, &server](Params& params) { return get(params, simulation, server); });
    methods.add(QStringLiteral("state.set"), [&simulation, &server](Params& params) {
        return answerChange(simulation.set(params.all()), server);
    });
    methods.add(QStringLiteral("state.release"), [&simulation, &server](Params& params) {
        return release(params, simulation, server);
    });
}

} // namespace kor::veltrano::sim

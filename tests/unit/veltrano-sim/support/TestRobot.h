// TestRobot: a simulated robot with both its doors, whose time passes only when a test says so.
#pragma once

#include "CommandLog.h"
#include "ControlDoor.h"
#include "ControlMethods.h"
#include "RpcServer.h"
#include "Simulation.h"

namespace kor::veltrano::sim {

class TestRobot
{
public:
    explicit TestRobot(const World& world = {});

    // Steps the physics and tells the clients.
    void step(int steps = 1);
    quint16 port() const { return server.address().port; }
    quint16 controlPort() const { return door.address().port; }
    // The result of a method of the control door.
    QJsonObject call(const QString& method, const QJsonObject& params = {}) const;
    // The text of its refusal; empty where it is not refused.
    QString refusal(const QString& method, const QJsonObject& params = {}) const;
    // One member of the state.
    QJsonValue state(const QString& key) const;
    // Sets one member of the state.
    void set(const QString& key, const QJsonValue& value);

    Simulation simulation;
    CommandLog log;
    RpcServer server;
    ControlMethods methods;
    ControlDoor door;
};

} // namespace kor::veltrano::sim

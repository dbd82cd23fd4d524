#include "support/TestRobot.h"

#include "ClientMethods.h"
#include "CommandMethods.h"
#include "StateMethods.h"

#include <gtest/gtest.h>

namespace kor::veltrano::sim {

TestRobot::TestRobot(const World& world)
    : simulation(world, 1), server(simulation, log, 1), door(methods)
{
    addStateMethods(methods, simulation, server);
    addCommandMethods(methods, log);
    addClientMethods(methods, server);
    const HostPort anyPort{QHostAddress(QHostAddress::LocalHost), 0};
    EXPECT_EQ(server.listen(anyPort).toStdString(), "");
    EXPECT_EQ(door.listen(anyPort).toStdString(), "");
}

void TestRobot::step(int steps)
{
    for (int step = 0; step < steps; ++step) {
        simulation.step(Simulation::stepS);
        server.publish();
    }
}

QJsonObject TestRobot::call(const QString& method, const QJsonObject& params) const
{
    const ControlReply reply = methods.call(method, params);
    EXPECT_EQ(reply.errorText.toStdString(), "");
    return reply.result;
}

QString TestRobot::refusal(const QString& method, const QJsonObject& params) const
{
    return methods.call(method, params).errorText;
}

QJsonValue TestRobot::state(const QString& key) const
{
    return call(QStringLiteral("state.get")).value(key);
}

void TestRobot::set(const QString& key, const QJsonValue& value)
{
    call(QStringLiteral("state.set"), {{key, value}});
}

} // namespace kor::veltrano::sim

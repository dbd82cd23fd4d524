#include "Simulation.h"

#include "AnalogInputs.h"
#include "Battery.h"
#include "Bumper.h"
#include "Camera.h"
#include "Charger.h"
#include "DigitalInputs.h"
#include "DistanceSensors.h"
#include "LaserRangeFinder.h"
#include "Odometry.h"
#include "OutputArray.h"
#include "PowerManagement.h"
#include "Record.h"
#include "Robot.h"
#include "records.h"

#include <QJsonArray>

#include <algorithm>
#include <utility>

namespace kor::veltrano::sim {

template<typename Kind, typename... Arguments>
Kind& Simulation::add(Arguments&&... arguments)
{
    auto device = std::make_unique<Kind>(std::forward<Arguments>(arguments)...);
    Kind& reference = *device;
    all.push_back(std::move(device));
    return reference;
}

// The order is the one in which devices are stepped and in which a client is told of them.
Simulation::Simulation(const World& surroundings, quint64 seed) : world(surroundings)
{
    const Robot& robot = add<Robot>(world);
    const Battery& battery = add<Battery>(robot);
    const OutputArray& outputs = add<OutputArray>(
        QStringLiteral("digitalOutputs"), QStringLiteral("digitalOutputArray.setValues"), 8);
    add<OutputArray>(QStringLiteral("relays"), QStringLiteral("relayArray.setValues"), 2);
    add<AnalogInputs>(seed);
    add<DigitalInputs>(outputs);
    add<DistanceSensors>(world, robot);
    add<Bumper>(robot);
    add<Odometry>(robot);
    add<PowerManagement>(battery);
    add<Charger>(battery, 0);
    add<Charger>(battery, 1);
    add<Record>(QStringLiteral("controllerInfo"), QStringLiteral("controllerInfo.infoChanged"),
                controllerRecord);
    add<Record>(QStringLiteral("festoolCharger"), QStringLiteral("festoolCharger.infoChanged"),
                [&battery] { return batteryPackRecord(battery); });
    add<Camera>(world, robot);
    add<LaserRangeFinder>(world, robot, seed);
}

void Simulation::step(double dtS)
{
    passedS += dtS;
    for (const auto& device : all) {
        device->step(dtS);
    }
}

bool Simulation::command(const QString& method, const QJsonObject& params)
{
    return std::any_of(all.begin(), all.end(), [&method, &params](const auto& device) {
        return device->command(method, params);
    });
}

QJsonObject Simulation::show() const
{
    QJsonObject shown{{QStringLiteral("world"), world.name()}, {QStringLiteral("timeS"), passedS}};
    QJsonArray held;
    for (const auto& device : all) {
        const QJsonObject members = device->show();
        for (auto member = members.begin(); member != members.end(); ++member) {
            shown.insert(member.key(), member.value());
            if (device->isHeld()) {
                held.append(member.key());
            }
        }
    }
    shown.insert(QStringLiteral("held"), held);
    return shown;
}

QString Simulation::set(const QJsonObject& values)
{
    std::vector<Change> changes;
    for (auto member = values.begin(); member != values.end(); ++member) {
        Device* const device = find(member.key());
        if (!device) {
            return unknownKey(member.key());
        }
        changes.push_back(device->prepare(member.key(), member.value()));
        if (!changes.back().isAccepted()) {
            return changes.back().reason();
        }
    }
    for (const Change& change : changes) {
        change.apply();
    }
    return {};
}

QString Simulation::release(const QStringList& keys)
{
    for (const QString& key : keys) {
        if (!find(key)) {
            return unknownKey(key);
        }
    }
    for (const auto& device : all) {
        const QStringList& own = device->keys();
        const bool isNamed = std::any_of(
            own.begin(), own.end(), [&keys](const QString& key) { return keys.contains(key); });
        if (keys.isEmpty() || isNamed) {
            device->release();
        }
    }
    return {};
}

Device* Simulation::find(const QString& key) const
{
    const auto found = std::find_if(all.begin(), all.end(), [&key](const auto& device) {
        return device->keys().contains(key);
    });
    return found == all.end() ? nullptr : found->get();
}

QString Simulation::unknownKey(const QString& key) const
{
    QStringList known;
    for (const auto& device : all) {
        known += device->keys();
    }
    return QStringLiteral("there is no %1; known are %2")
        .arg(key, known.join(QStringLiteral(", ")));
}

} // namespace kor::veltrano::sim

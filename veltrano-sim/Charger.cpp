#include "Charger.h"

#include "Battery.h"
#include "JsonShape.h"

#include <limits>

namespace kor::veltrano::sim {

namespace {

const QLatin1String versionKey("version");
const QLatin1String errorKey("error");
const double ambientC = 24;
const double warmUpS = 300;

// Nothing where value is no object of exactly the three whole numbers of a version.
std::optional<QJsonObject> toVersion(const QJsonValue& value)
{
    const QStringList names{QStringLiteral("major"), QStringLiteral("minor"),
                            QStringLiteral("patch")};
    const QJsonObject version = value.toObject();
    for (const QString& name : names) {
        if (!toInteger(version.value(name), 0, std::numeric_limits<qint32>::max())) {
            return std::nullopt;
        }
    }
    return version.size() == names.size() ? std::optional(version) : std::nullopt;
}

} // namespace

Charger::Charger(const Battery& filled, int index)
    : HeldReadings(QStringLiteral("charger%1").arg(index), 1, {QStringLiteral("state_number")},
                   {QStringLiteral("time")}),
      battery(filled),
      number(index),
      version{
          {QStringLiteral("major"), 1}, {QStringLiteral("minor"), 4}, {QStringLiteral("patch"), 2}}
{
}

std::vector<Event> Charger::state() const
{
    std::vector<Event> events{info(), versionEvent()};
    if (!error.isEmpty()) {
        events.push_back(errorEvent());
    }
    return events;
}

QJsonObject Charger::show() const
{
    QJsonObject shown = readings();
    shown.insert(versionKey, version);
    shown.insert(errorKey, error);
    return {{keys().first(), shown}};
}

Change Charger::prepare(const QString& key, const QJsonValue& value)
{
    QJsonObject given = value.toObject();
    const QJsonValue givenVersion = given.take(versionKey);
    const QJsonValue givenError = given.take(errorKey);
    const std::optional<QJsonObject> wantedVersion = toVersion(givenVersion);
    if (!givenVersion.isUndefined() && !wantedVersion) {
        return Change::refused(
            QStringLiteral("%1.version must hold the whole numbers major, minor and patch")
                .arg(key));
    }
    if (!givenError.isUndefined() && !givenError.isString()) {
        return Change::refused(QStringLiteral("%1.error must be a text").arg(key));
    }
    const Merged wish = merged(value.isObject() ? QJsonValue(given) : value);
    if (!wish.refusal.isEmpty()) {
        return Change::refused(wish.refusal);
    }
    return Change::accepted([this, wish, wantedVersion, givenError, holds = !given.isEmpty()] {
        if (holds) {
            hold(wish.readings);
        }
        version = wantedVersion.value_or(version);
        error = givenError.toString(error);
        isVersionNew = isVersionNew || wantedVersion.has_value();
        isErrorNew = isErrorNew || givenError.isString();
        announce();
    });
}

void Charger::simulate(double dtS)
{
    timeS += dtS;
    const double goal = ambientC + 2 * battery.chargingA();
    temperatureC += (goal - temperatureC) * qMin(1.0, dtS / warmUpS);
}

std::vector<Event> Charger::news()
{
    std::vector<Event> events{info()};
    if (isVersionNew) {
        events.push_back(versionEvent());
    }
    if (isErrorNew) {
        events.push_back(errorEvent());
    }
    forgetNews();
    return events;
}

void Charger::forgetNews()
{
    isVersionNew = false;
    isErrorNew = false;
}

QJsonObject Charger::simulated() const
{
    const State present = chargingState();
    return {{QStringLiteral("time"), static_cast<double>(static_cast<quint32>(timeS))},
            {QStringLiteral("batteryVoltage"), battery.voltageV()},
            {QStringLiteral("chargingCurrent"), battery.chargingA() / 2},
            {QStringLiteral("bat1temp"), temperatureC},
            {QStringLiteral("bat2temp"), temperatureC + 0.5},
            {QStringLiteral("state_number"), present.number},
            {QStringLiteral("state"), present.name}};
}

Charger::State Charger::chargingState() const
{
    if (!battery.isFedFromOutside()) {
        return {0, QStringLiteral("idle")};
    }
    if (battery.charge() < 0.9) {
        return {1, QStringLiteral("bulk")};
    }
    return battery.charge() < 0.99 ? State{2, QStringLiteral("absorption")}
                                   : State{3, QStringLiteral("float")};
}

Event Charger::event(const QString& method, QJsonObject params) const
{
    params.insert(QStringLiteral("chargerNumber"), number);
    return {method, params};
}

Event Charger::info() const
{
    return event(QStringLiteral("charger.infoChanged"), readings());
}

Event Charger::versionEvent() const
{
    return event(QStringLiteral("charger.versionChanged"), version);
}

Event Charger::errorEvent() const
{
    return event(QStringLiteral("charger.errorChanged"),
                 {{QStringLiteral("time"), readings().value(QStringLiteral("time"))},
                  {QStringLiteral("message"), error}});
}

} // namespace kor::veltrano::sim

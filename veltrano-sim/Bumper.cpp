#include "Bumper.h"

#include "Robot.h"

namespace kor::veltrano::sim {

Bumper::Bumper(const Robot& carrier)
    : Device({QStringLiteral("bumper")}), robot(carrier), last(carrier.isTouching())
{
}

bool Bumper::value() const
{
    return held.value_or(robot.isTouching());
}

std::vector<Event> Bumper::state() const
{
    return {{QStringLiteral("bumper.changed"), {{QStringLiteral("value"), value()}}}};
}

QJsonObject Bumper::show() const
{
    return {{QStringLiteral("bumper"), value()}};
}

Change Bumper::prepare(const QString&, const QJsonValue& value)
{
    if (!value.isBool()) {
        return Change::refused(QStringLiteral("bumper must be true or false"));
    }
    return Change::accepted([this, hit = value.toBool()] {
        held = hit;
        last = hit;
        announce();
    });
}

void Bumper::simulate(double)
{
    if (value() != last) {
        last = value();
        announce();
    }
}

} // namespace kor::veltrano::sim

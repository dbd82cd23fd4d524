#include "DigitalInputs.h"

#include "JsonShape.h"
#include "OutputArray.h"

#include <limits>

namespace kor::veltrano::sim {

DigitalInputs::DigitalInputs(const OutputArray& wired)
    : Device({QStringLiteral("digitalInputs")}), outputs(wired), last(wired.values())
{
}

std::vector<int> DigitalInputs::values() const
{
    return held ? *held : outputs.values();
}

std::vector<Event> DigitalInputs::state() const
{
    return {{QStringLiteral("digitalInputArray.valuesChanged"),
             {{QStringLiteral("values"), toJson(values())}}}};
}

QJsonObject DigitalInputs::show() const
{
    return {{QStringLiteral("digitalInputs"), toJson(values())}};
}

Change DigitalInputs::prepare(const QString& key, const QJsonValue& value)
{
    using Limits = std::numeric_limits<qint32>;
    const auto integers = toIntegers(value, count, Limits::min(), Limits::max());
    if (!integers) {
        return Change::refused(
            QStringLiteral("%1 must be an array of %2 whole numbers").arg(key).arg(count));
    }
    return Change::accepted([this, integers] {
        held = integers;
        last = *integers;
        announce();
    });
}

void DigitalInputs::simulate(double)
{
    const std::vector<int> present = values();
    if (present != last) {
        last = present;
        announce();
    }
}

} // namespace kor::veltrano::sim

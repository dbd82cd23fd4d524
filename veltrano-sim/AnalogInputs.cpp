#include "AnalogInputs.h"

#include "JsonShape.h"
#include "Noise.h"

#include <cmath>

namespace kor::veltrano::sim {

namespace {

constexpr double measurementS = 0.2;
constexpr double noiseV = 0.01;

} // namespace

AnalogInputs::AnalogInputs(quint64 number)
    : Device({QStringLiteral("analogInputs")}, measurementS), seed(number)
{
    quint64 draw = 0;
    for (int input = 0; input < count; ++input) {
        const double meanV = 1 + 8 * scattered(seed, draw++);
        const double amplitudeV = 0.2 + 0.6 * scattered(seed, draw++);
        const double cycleS = 20 + 70 * scattered(seed, draw++);
        waves.push_back({meanV, amplitudeV, cycleS, 2 * M_PI * scattered(seed, draw++)});
    }
}

std::vector<double> AnalogInputs::values() const
{
    if (held) {
        return *held;
    }
    const auto measurement = static_cast<quint64>(timeS / measurementS + 1e-6);
    quint64 draw = 1000 + measurement * count;
    std::vector<double> result;
    for (const Wave& wave : waves) {
        const double swing = std::sin(wave.phase + 2 * M_PI * timeS / wave.periodS);
        const double noise = noiseV * (scattered(seed, draw++) - 0.5);
        result.push_back(wave.meanV + wave.amplitudeV * swing + noise);
    }
    return result;
}

std::vector<Event> AnalogInputs::state() const
{
    return {{QStringLiteral("analogInputArray.valuesChanged"),
             {{QStringLiteral("values"), toJson(values())}}}};
}

QJsonObject AnalogInputs::show() const
{
    return {{QStringLiteral("analogInputs"), toJson(values())}};
}

Change AnalogInputs::prepare(const QString& key, const QJsonValue& value)
{
    const std::optional<std::vector<double>> numbers = toNumbers(value, count);
    if (!numbers) {
        return Change::refused(
            QStringLiteral("%1 must be an array of %2 numbers").arg(key).arg(count));
    }
    return Change::accepted([this, numbers] {
        held = numbers;
        announce();
    });
}

} // namespace kor::veltrano::sim

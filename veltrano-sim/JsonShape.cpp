#include "JsonShape.h"

#include <cmath>

namespace kor::veltrano::sim {

namespace {

template<typename Number>
QJsonArray arrayOf(const std::vector<Number>& numbers)
{
    QJsonArray array;
    for (const Number number : numbers) {
        array.append(number);
    }
    return array;
}

} // namespace

std::optional<double> toNumber(const QJsonValue& value)
{
    if (!value.isDouble() || !std::isfinite(value.toDouble())) {
        return std::nullopt;
    }
    return value.toDouble();
}

std::optional<qint64> toInteger(const QJsonValue& value, qint64 least, qint64 most)
{
    const std::optional<double> number = toNumber(value);
    if (!number || std::floor(*number) != *number || *number < static_cast<double>(least)
        || *number > static_cast<double>(most)) {
        return std::nullopt;
    }
    return static_cast<qint64>(*number);
}

std::optional<std::vector<double>> toNumbers(const QJsonValue& value, int count)
{
    if (!value.isArray() || value.toArray().size() != count) {
        return std::nullopt;
    }
    std::vector<double> numbers;
    const QJsonArray array = value.toArray();
    for (const QJsonValue& entry : array) {
        const std::optional<double> number = toNumber(entry);
        if (!number) {
            return std::nullopt;
        }
        numbers.push_back(*number);
    }
    return numbers;
}

std::optional<std::vector<int>> toIntegers(const QJsonValue& value, int count, int least, int most)
{
    const std::optional<std::vector<double>> numbers = toNumbers(value, count);
    if (!numbers) {
        return std::nullopt;
    }
    std::vector<int> integers;
    for (const double number : *numbers) {
        const std::optional<qint64> integer = toInteger(number, least, most);
        if (!integer) {
            return std::nullopt;
        }
        integers.push_back(static_cast<int>(*integer));
    }
    return integers;
}

std::optional<Velocity> toVelocity(const QJsonValue& value)
{
    const std::optional<double> vx = toNumber(value[QStringLiteral("vx")]);
    const std::optional<double> vy = toNumber(value[QStringLiteral("vy")]);
    const std::optional<double> omega = toNumber(value[QStringLiteral("omega")]);
    if (!vx || !vy || !omega) {
        return std::nullopt;
    }
    return Velocity{*vx, *vy, *omega};
}

std::optional<Pose> toPose(const QJsonValue& value)
{
    const std::optional<double> x = toNumber(value[QStringLiteral("x")]);
    const std::optional<double> y = toNumber(value[QStringLiteral("y")]);
    const std::optional<double> phi = toNumber(value[QStringLiteral("phi")]);
    if (!x || !y || !phi) {
        return std::nullopt;
    }
    return Pose{*x, *y, wrappedAngle(*phi)};
}

QJsonArray toJson(const std::vector<double>& numbers)
{
    return arrayOf(numbers);
}

QJsonArray toJson(const std::vector<int>& numbers)
{
    return arrayOf(numbers);
}

QJsonObject toJson(const Velocity& velocity)
{
    return {{QStringLiteral("vx"), velocity.vx},
            {QStringLiteral("vy"), velocity.vy},
            {QStringLiteral("omega"), velocity.omega}};
}

QJsonObject toJson(const Pose& pose)
{
    return {{QStringLiteral("x"), pose.x},
            {QStringLiteral("y"), pose.y},
            {QStringLiteral("phi"), pose.phi}};
}

} // namespace kor::veltrano::sim

// Reading JSON values of an expected shape. Free functions; nothing is given where the shape or a
// value does not fit.
#pragma once

#include "Pose.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QJsonValue>

#include <optional>
#include <vector>

namespace kor::veltrano::sim {

// A finite number.
std::optional<double> toNumber(const QJsonValue& value);
// A whole number between least and most.
std::optional<qint64> toInteger(const QJsonValue& value, qint64 least, qint64 most);
// An array of exactly count finite numbers.
std::optional<std::vector<double>> toNumbers(const QJsonValue& value, int count);
// An array of exactly count whole numbers between least and most.
std::optional<std::vector<int>> toIntegers(const QJsonValue& value, int count, int least, int most);
// An object with the numbers vx, vy and omega.
std::optional<Velocity> toVelocity(const QJsonValue& value);
// An object with the numbers x, y and phi.
std::optional<Pose> toPose(const QJsonValue& value);

QJsonArray toJson(const std::vector<double>& numbers);
QJsonArray toJson(const std::vector<int>& numbers);
QJsonObject toJson(const Velocity& velocity);
QJsonObject toJson(const Pose& pose);

} // namespace kor::veltrano::sim

#include "Params.h"

#include <QJsonArray>

#include <cmath>
#include <limits>

namespace kor::veltrano::api2::detail {

namespace {

std::optional<float> realOf(const QJsonValue& value)
{
    constexpr double limit = std::numeric_limits<float>::max();
    if (!value.isDouble() || !(std::abs(value.toDouble()) <= limit)) {
        return std::nullopt;
    }
    return static_cast<float>(value.toDouble());
}

// The limits of 32-bit types are exact as double, so the comparison decides for the value itself.
template<class Integer>
std::optional<Integer> integerOf(const QJsonValue& value)
{
    const double number = value.toDouble();
    if (!value.isDouble() || std::trunc(number) != number
        || number < static_cast<double>(std::numeric_limits<Integer>::min())
        || number > static_cast<double>(std::numeric_limits<Integer>::max())) {
        return std::nullopt;
    }
    return static_cast<Integer>(number);
}

} // namespace

template<class Value>
Value Params::require(const std::optional<Value>& value)
{
    fit = fit && value.has_value();
    return value.value_or(Value());
}

bool Params::boolean(const QString& name)
{
    const QJsonValue value = object.value(name);
    fit = fit && value.isBool();
    return value.toBool();
}

double Params::number(const QString& name)
{
    const QJsonValue value = object.value(name);
    fit = fit && value.isDouble();
    return value.toDouble();
}

float Params::real(const QString& name)
{
    return require(realOf(object.value(name)));
}

int Params::integer(const QString& name)
{
    return require(integerOf<int>(object.value(name)));
}

unsigned int Params::natural(const QString& name)
{
    return require(integerOf<unsigned int>(object.value(name)));
}

std::string Params::text(const QString& name)
{
    const QJsonValue value = object.value(name);
    fit = fit && value.isString();
    return value.toString().toStdString();
}

QByteArray Params::base64(const QString& name)
{
    const QJsonValue value = object.value(name);
    const QByteArray encoded = value.toString().toUtf8();
    // Qt accepts a text whose padding is missing; the protocol's Base64 has it.
    fit = fit && value.isString() && encoded.size() % 4 == 0;
    if (!fit) {
        return {};
    }
    const auto result =
        QByteArray::fromBase64Encoding(encoded, QByteArray::AbortOnBase64DecodingErrors);
    fit = result.decodingStatus == QByteArray::Base64DecodingStatus::Ok;
    return result.decoded;
}

std::vector<float> Params::reals(const QString& name)
{
    const QJsonValue value = object.value(name);
    fit = fit && value.isArray();
    const QJsonArray array = value.toArray();
    std::vector<float> result;
    result.reserve(static_cast<std::size_t>(array.size()));
    for (const QJsonValue& entry : array) {
        result.push_back(require(realOf(entry)));
    }
    return result;
}

std::vector<int> Params::integers(const QString& name)
{
    const QJsonValue value = object.value(name);
    fit = fit && value.isArray();
    const QJsonArray array = value.toArray();
    std::vector<int> result;
    for (const QJsonValue& entry : array) {
        result.push_back(require(integerOf<int>(entry)));
    }
    return result;
}

} // namespace kor::veltrano::api2::detail

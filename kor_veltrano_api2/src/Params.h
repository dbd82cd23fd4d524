// Params: strict reading of a notification's members.
//
// Each read gives the member's value, or a default where the member is missing or does not fit, and
// in that case remembers that the whole is unfit: an event is checked whole before any of it is
// used. Made for one message on the socket's thread.
#pragma once

#include <QByteArray>
#include <QJsonObject>
#include <QJsonValue>
#include <QString>

#include <array>
#include <optional>
#include <string>
#include <vector>

namespace kor::veltrano::api2::detail {

class Params
{
public:
    explicit Params(const QJsonObject& members) : object(members) { }

    // False once any read has failed.
    bool isFit() const { return fit; }

    bool boolean(const QString& name);
    double number(const QString& name);
    // A number that a float can hold without becoming infinite.
    float real(const QString& name);
    // A number without a fraction in the range of the type.
    int integer(const QString& name);
    unsigned int natural(const QString& name);
    // UTF-8.
    std::string text(const QString& name);
    // The bytes of a Base64 text with its padding.
    QByteArray base64(const QString& name);
    std::vector<float> reals(const QString& name);

    // Arrays of exactly so many entries.
    template<std::size_t Count>
    std::array<float, Count> realArray(const QString& name);
    template<std::size_t Count>
    std::array<int, Count> integerArray(const QString& name);

    // Called where a member is well-formed but means nothing.
    void reject() { fit = false; }

private:
    // The value, or a default value and an unfit whole.
    template<class Value>
    Value require(const std::optional<Value>& value);
    std::vector<int> integers(const QString& name);

    QJsonObject object;
    bool fit = true;
};

template<std::size_t Count>
std::array<float, Count> Params::realArray(const QString& name)
{
    const std::vector<float> values = reals(name);
    std::array<float, Count> result{};
    fit = fit && values.size() == Count;
    for (std::size_t i = 0; fit && i < Count; ++i) {
        result[i] = values[i];
    }
    return result;
}

template<std::size_t Count>
std::array<int, Count> Params::integerArray(const QString& name)
{
    const std::vector<int> values = integers(name);
    std::array<int, Count> result{};
    fit = fit && values.size() == Count;
    for (std::size_t i = 0; fit && i < Count; ++i) {
        result[i] = values[i];
    }
    return result;
}

} // namespace kor::veltrano::api2::detail

#include "OutputArray.h"

#include "JsonShape.h"

namespace kor::veltrano::sim {

OutputArray::OutputArray(const QString& key, const QString& method, int count)
    : Device({key}), setMethod(method), current(static_cast<std::size_t>(count), 0)
{
}

bool OutputArray::command(const QString& method, const QJsonObject& params)
{
    if (method != setMethod) {
        return false;
    }
    const int count = static_cast<int>(current.size());
    const auto values = toIntegers(params.value(QStringLiteral("values")), count, 0, 1);
    if (values) {
        current = *values;
    }
    return values.has_value();
}

QJsonObject OutputArray::show() const
{
    return {{keys().first(), toJson(current)}};
}

Change OutputArray::prepare(const QString& key, const QJsonValue& value)
{
    const int count = static_cast<int>(current.size());
    const auto values = toIntegers(value, count, 0, 1);
    if (!values) {
        return Change::refused(
            QStringLiteral("%1 must be an array of %2 numbers 0 or 1").arg(key).arg(count));
    }
    return Change::accepted([this, values] { current = *values; });
}

} // namespace kor::veltrano::sim

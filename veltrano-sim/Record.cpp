#include "Record.h"

#include "Bytes.h"

#include <utility>

namespace kor::veltrano::sim {

namespace {

constexpr double recordS = 2;

} // namespace

Record::Record(const QString& key, const QString& eventMethod, Writer writer)
    : Device({key}, recordS), method(eventMethod), write(std::move(writer))
{
}

std::vector<Event> Record::state() const
{
    const QString data = QString::fromLatin1(bytes().toBase64());
    return {{method, {{QStringLiteral("data"), data}}}};
}

QJsonObject Record::show() const
{
    return {{keys().first(), fromBytes(bytes())}};
}

Change Record::prepare(const QString& key, const QJsonValue& value)
{
    const std::optional<QByteArray> wanted = toBytes(value.toObject());
    if (!wanted) {
        return Change::refused(
            QStringLiteral("%1 must be an object with either text or base64, both texts").arg(key));
    }
    return Change::accepted([this, wanted] {
        held = wanted;
        announce();
    });
}

} // namespace kor::veltrano::sim

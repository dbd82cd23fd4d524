#include "HeldReadings.h"

#include "JsonShape.h"

#include <limits>

namespace kor::veltrano::sim {

HeldReadings::HeldReadings(const QString& key, double newsPeriodS, const QStringList& wholeNumbers,
                           const QStringList& largeWholeNumbers)
    : Device({key}, newsPeriodS), integers(wholeNumbers), largeIntegers(largeWholeNumbers)
{
}

QJsonObject HeldReadings::show() const
{
    return {{keys().first(), readings()}};
}

Change HeldReadings::prepare(const QString&, const QJsonValue& value)
{
    const Merged wish = merged(value);
    if (!wish.refusal.isEmpty()) {
        return Change::refused(wish.refusal);
    }
    return Change::accepted([this, wish] {
        hold(wish.readings);
        announce();
    });
}

HeldReadings::Merged HeldReadings::merged(const QJsonValue& value) const
{
    const QString key = keys().first();
    if (!value.isObject()) {
        return {{}, QStringLiteral("%1 must be an object").arg(key)};
    }
    Merged result{readings(), {}};
    const QJsonObject given = value.toObject();
    for (auto member = given.begin(); member != given.end(); ++member) {
        if (!result.readings.contains(member.key())) {
            const QString known = result.readings.keys().join(QStringLiteral(", "));
            return {{},
                    QStringLiteral("%1 has no member %2; it has %3").arg(key, member.key(), known)};
        }
        const QString expected =
            misfit(member.key(), result.readings.value(member.key()), member.value());
        if (!expected.isEmpty()) {
            return {{}, QStringLiteral("%1.%2 must be %3").arg(key, member.key(), expected)};
        }
        result.readings.insert(member.key(), member.value());
    }
    return result;
}

QString HeldReadings::misfit(const QString& name, const QJsonValue& present,
                             const QJsonValue& given) const
{
    if (integers.contains(name)) {
        const qint64 most = std::numeric_limits<qint32>::max();
        return toInteger(given, -most - 1, most) ? QString() : QStringLiteral("a whole number");
    }
    if (largeIntegers.contains(name)) {
        const qint64 most = std::numeric_limits<quint32>::max();
        return toInteger(given, 0, most) ? QString()
                                         : QStringLiteral("a whole number from 0 to 4294967295");
    }
    if (present.isDouble()) {
        return toNumber(given) ? QString() : QStringLiteral("a number");
    }
    if (present.isArray()) {
        const bool fits = toNumbers(given, given.toArray().size()).has_value();
        return fits ? QString() : QStringLiteral("an array of numbers");
    }
    if (given.type() == present.type()) {
        return {};
    }
    return present.isBool() ? QStringLiteral("true or false") : QStringLiteral("a text");
}

} // namespace kor::veltrano::sim

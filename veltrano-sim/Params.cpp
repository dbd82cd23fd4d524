#include "Params.h"

#include "JsonShape.h"

namespace kor::veltrano::sim {

QJsonValue Params::value(const QString& name)
{
    QJsonValue result = optionalValue(name);
    if (result.isUndefined()) {
        fail(QStringLiteral("%1 is missing").arg(name));
    }
    return result;
}

QJsonValue Params::optionalValue(const QString& name)
{
    known.append(name);
    return given.value(name);
}

qint64 Params::integer(const QString& name, qint64 least, qint64 most)
{
    const auto result = toInteger(value(name), least, most);
    if (!result) {
        fail(QStringLiteral("%1 must be a whole number from %2 to %3")
                 .arg(name, QString::number(least), QString::number(most)));
    }
    return result.value_or(least);
}

qint64 Params::integer(const QString& name, qint64 least, qint64 most, qint64 fallback)
{
    if (given.contains(name)) {
        return integer(name, least, most);
    }
    known.append(name);
    return fallback;
}

double Params::number(const QString& name, double least, double most)
{
    const auto result = toNumber(value(name));
    if (!result || *result < least || *result > most) {
        fail(QStringLiteral("%1 must be a number from %2 to %3")
                 .arg(name, QString::number(least), QString::number(most)));
    }
    return result.value_or(least);
}

bool Params::flag(const QString& name)
{
    const QJsonValue result = value(name);
    if (!result.isBool()) {
        fail(QStringLiteral("%1 must be true or false").arg(name));
    }
    return result.toBool();
}

QStringList Params::texts(const QString& name)
{
    const QJsonValue list = optionalValue(name);
    if (list.isUndefined()) {
        return {};
    }
    QStringList result;
    const QJsonArray entries = list.toArray();
    for (const QJsonValue& entry : entries) {
        if (entry.isString()) {
            result.append(entry.toString());
        }
    }
    if (!list.isArray() || result.size() != entries.size()) {
        fail(QStringLiteral("%1 must be an array of texts").arg(name));
    }
    return result;
}

void Params::fail(const QString& problem)
{
    if (firstError.isEmpty()) {
        firstError = problem;
    }
}

QString Params::error() const
{
    if (!firstError.isEmpty()) {
        return firstError;
    }
    const QStringList names = given.keys();
    for (const QString& name : names) {
        if (!known.contains(name)) {
            return QStringLiteral("%1 is unknown here").arg(name);
        }
    }
    return {};
}

} // namespace kor::veltrano::sim

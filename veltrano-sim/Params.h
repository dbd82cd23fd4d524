// Params: reads the params of a control door's request member by member.
//
// Each reading names a member and what it must be. After the last one, error() tells what is wrong:
// the first member that does not fit, or one that nobody has asked for. A local object of one call.
#pragma once

#include <QJsonObject>
#include <QJsonValue>
#include <QString>
#include <QStringList>

namespace kor::veltrano::sim {

class Params
{
public:
    explicit Params(const QJsonObject& members) : given(members) { }

    // Any value; it must be there.
    QJsonValue value(const QString& name);
    // The value, or undefined where there is none.
    QJsonValue optionalValue(const QString& name);
    // A whole number from least to most.
    qint64 integer(const QString& name, qint64 least, qint64 most);
    // The same, or fallback where there is none.
    qint64 integer(const QString& name, qint64 least, qint64 most, qint64 fallback);
    // A number from least to most.
    double number(const QString& name, double least, double most);
    bool flag(const QString& name);
    // An array of texts; empty where there is none.
    QStringList texts(const QString& name);

    // All members as they are, for a method that takes any.
    const QJsonObject& all() const { return given; }
    // Notes a problem that the caller has found.
    void fail(const QString& problem);
    // What is wrong, for a person to read; empty where all is well.
    QString error() const;

private:
    const QJsonObject given;
    QStringList known;
    QString firstError;
};

} // namespace kor::veltrano::sim

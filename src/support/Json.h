// How replies become JSON text. Any thread.
#pragma once

#include <QByteArray>
#include <QJsonArray>
#include <QJsonObject>

namespace kor::veltrano::daemons {

// UTF-8, indented, keys sorted, with a line feed at the end; a number that is not finite is null.
QByteArray renderJson(const QJsonArray& array);
QByteArray renderJson(const QJsonObject& object);

} // namespace kor::veltrano::daemons

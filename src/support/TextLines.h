// Printed text as the browser shows it.
#pragma once

#include <QByteArray>
#include <QJsonArray>

namespace kor::veltrano::daemons {

// An array of objects with the "text" of each line that isn't empty. Lines are not trimmed.
QJsonArray textLines(const QByteArray& text);

} // namespace kor::veltrano::daemons

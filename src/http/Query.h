// The query of a request, taken apart.
#pragma once

#include <QMap>
#include <QString>

#include <string>

namespace kor::veltrano::daemons {

// The items of a query, keys and values as they came: nothing is percent-decoded. Of a repeated key
// one value is kept. Logs each pair at level 2. Any thread.
QMap<QString, QString> parseQuery(const std::string& query);

} // namespace kor::veltrano::daemons

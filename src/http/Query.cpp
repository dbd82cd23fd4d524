#include "http/Query.h"

#include "daemon/Log.h"

#include <cpprest/base_uri.h>

namespace kor::veltrano::daemons {

QMap<QString, QString> parseQuery(const std::string& query)
{
    QMap<QString, QString> parameters;
    for (const auto& [key, value] : web::uri::split_query(query)) {
        parameters.insert(QString::fromStdString(key), QString::fromStdString(value));
    }
    if (isLogged(2)) {
        for (auto item = parameters.cbegin(); item != parameters.cend(); ++item) {
            logMessage(QStringLiteral("%1 : %2").arg(item.key(), item.value()), 2);
        }
    }
    return parameters;
}

} // namespace kor::veltrano::daemons

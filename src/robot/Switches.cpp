#include "robot/Switches.h"

#include "daemon/Log.h"

#include <QJsonArray>
#include <QJsonDocument>

#include <algorithm>
#include <vector>

namespace kor::veltrano::daemons {

bool jsonToBool(const QJsonValue& value)
{
    switch (value.type()) {
    case QJsonValue::Bool:
        return value.toBool();
    case QJsonValue::Double:
        return value.toDouble() > 0;
    case QJsonValue::String: {
        const QString word = value.toString().toLower();
        return word == QLatin1String("true") || word == QLatin1String("yes");
    }
    default:
        return false;
    }
}

bool applySwitches(const QByteArray& body, const SwitchFormat& format,
                   const std::function<void(const int* values, unsigned int count)>& setValues)
{
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(body, &error);
    if (error.error != QJsonParseError::NoError) {
        // The messages name the relays for every array, and a client that sends no JSON is not
        // told: both are part of the interface.
        logMessage(QStringLiteral("Error: MyRelayArray::setData - Invalid JSON: %1")
                       .arg(error.errorString()),
                   0);
        return true;
    }
    const QJsonArray array = document.array();
    if (array.size() != format.count) {
        logMessage(QStringLiteral("Error: MyRelayArray::setData - Expected array with %1 entries")
                       .arg(QLatin1String(format.countText)),
                   0);
        return false;
    }
    std::vector<int> values(array.size());
    std::transform(array.begin(), array.end(), values.begin(),
                   [](const QJsonValue& entry) { return jsonToBool(entry) ? 1 : 0; });
    setValues(values.data(), unsigned(values.size()));
    return true;
}

} // namespace kor::veltrano::daemons

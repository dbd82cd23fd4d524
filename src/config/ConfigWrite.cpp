#include "config/ConfigWrite.h"

#include "config/ConfigReplace.h"
#include "daemon/Log.h"
#include "support/Json.h"

#include <QJsonDocument>

#include <utility>

namespace kor::veltrano::daemons {

namespace {

void logBody(const char* pattern, const QByteArray& body, int level)
{
    if (isLogged(level)) {
        logMessage(QString::fromUtf8(pattern).arg(QString::fromUtf8(body)), level);
    }
}

// The names of the daemons whose files have changed.
QJsonArray replaceFiles(const ConfigChanges& changes)
{
    QJsonArray daemons;
    for (auto file = changes.cbegin(); file != changes.cend(); ++file) {
        std::pair<QString, QString> restart;
        replaceConfigFile(file.value(), file.key(), restart);
        const QString& name = restart.second;
        if (!name.isEmpty()) {
            daemons.append(name);
        }
    }
    return daemons;
}

} // namespace

void collectConfigValues(const QJsonObject& node, ConfigChanges& changes)
{
    if (!node.contains(QLatin1String("value"))) {
        const QJsonArray children = node[QLatin1String("_children")].toArray();
        for (const QJsonValue& child : children) {
            collectConfigValues(child.toObject(), changes);
        }
        return;
    }
    const QString key = node[QLatin1String("group")].toString() + QLatin1Char('/')
        + node[QLatin1String("name")].toString();
    changes[node[QLatin1String("file")].toString()][key] = node[QLatin1String("value")].toString();
}

bool writeConfigData(const QByteArray& body, QByteArray& result)
{
    logBody("writeConfigData: %1", body, 3);
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(body, &error);
    if (error.error != QJsonParseError::NoError) {
        logBody("Error writeConfigData: %1", body, 0);
        return false;
    }
    logBody("writeConfigData: %1", document.toJson(), 2);

    ConfigChanges changes;
    const QJsonArray tree = document.array();
    for (const QJsonValue& node : tree) {
        collectConfigValues(node.toObject(), changes);
    }
    const QJsonArray daemons = replaceFiles(changes);
    if (!daemons.isEmpty()) {
        result = renderJson(QJsonObject{{QStringLiteral("daemons"), daemons}});
    }
    return true;
}

} // namespace kor::veltrano::daemons

#include "access/AccessManager.h"

#include "access/Role.h"
#include "config/ConfigFile.h"
#include "daemon/Log.h"
#include "support/Json.h"

#include <QJsonDocument>
#include <QMutexLocker>

namespace kor::veltrano::daemons {

AccessManager* accessManager = nullptr;

namespace {

QString operatorPassword()
{
    return settings.value(QStringLiteral("Login/operator"));
}

QString administratorPassword()
{
    return settings.value(QStringLiteral("Login/administrator"));
}

int roleWithoutLogin()
{
    if (administratorPassword().isEmpty()) {
        return admin;
    }
    return operatorPassword().isEmpty() ? operatorRole : guest;
}

} // namespace

AccessManager::AccessManager() : defaultRole(roleWithoutLogin()) { }

int AccessManager::role(const QString& sid) const
{
    const QMutexLocker lock(&mutex);
    return sessions.value(sid, defaultRole);
}

int AccessManager::login(const QString& sid, int requestedRole, const QString& password)
{
    const QMutexLocker lock(&mutex);
    const bool needsPassword = requestedRole == operatorRole || requestedRole == admin;
    if (requestedRole <= defaultRole || !needsPassword) {
        sessions.remove(sid);
        return defaultRole;
    }
    // A wrong password doesn't log the client out, although the answer names the default role.
    if (password != (requestedRole == admin ? administratorPassword() : operatorPassword())) {
        return defaultRole;
    }
    sessions.insert(sid, requestedRole);
    return requestedRole;
}

bool AccessManager::setData(const QByteArray& data, const QMap<QString, QString>& parameters,
                            QByteArray& result)
{
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(data, &error);
    const bool success = error.error == QJsonParseError::NoError;
    QString message;
    if (success) {
        const QJsonObject credentials = document.object();
        const int requestedRole = roleNumber(credentials.value(QLatin1String("role")).toString());
        const QString password = credentials.value(QLatin1String("password")).toString();
        const int role = login(parameters.value(QStringLiteral("sid")), requestedRole, password);
        message = QStringLiteral("Logged in as %1").arg(roleName(role));
    } else {
        message = QStringLiteral("Error: AccessManager::setData - Invalid JSON: %1")
                      .arg(error.errorString());
    }
    logMessage(message, 0);
    result =
        renderJson({{QStringLiteral("message"), message}, {QStringLiteral("success"), success}});
    return true;
}

} // namespace kor::veltrano::daemons

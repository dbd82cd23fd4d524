#include "programs/ServiceControl.h"

#include "config/ConfigFile.h"
#include "daemon/Log.h"
#include "support/Json.h"
#include "support/ShortCommand.h"
#include "support/TextLines.h"

namespace kor::veltrano::daemons {

namespace {

bool runServiceScript(const char* settingsKey, const QByteArray& data, const char* word)
{
    const QString script = settings.value(QString::fromLatin1(settingsKey));
    // A C string: the name ends at the first zero byte.
    const QString name = QString::fromUtf8(data.constData());
    return runShortCommand(script, {name, QString::fromLatin1(word)}).isFinished;
}

} // namespace

QByteArray createServiceStatusData(const QString& name)
{
    logMessage(QStringLiteral("createServiceStatusData %1").arg(name), 2);
    const CommandOutput output =
        runShortCommand(QStringLiteral("systemctl"), {QStringLiteral("status"), name});
    return renderJson(textLines(output.answer()));
}

bool startService(const QByteArray& data)
{
    return runServiceScript("Scripts/startstopservice", data, "start");
}

bool stopService(const QByteArray& data)
{
    return runServiceScript("Scripts/startstopservice", data, "stop");
}

bool activateService(const QByteArray& data)
{
    return runServiceScript("Scripts/enableservice", data, "enable");
}

bool deactivateService(const QByteArray& data)
{
    return runServiceScript("Scripts/enableservice", data, "disable");
}

} // namespace kor::veltrano::daemons

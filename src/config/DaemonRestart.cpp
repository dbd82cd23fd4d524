#include "config/DaemonRestart.h"

#include "config/ConfigFile.h"

#include <QDebug>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace kor::veltrano::daemons {

bool restartDaemons(const QByteArray& body, QByteArray& /*result*/)
{
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(body, &error);
    qDebug() << body;
    if (error.error != QJsonParseError::NoError) {
        return false;
    }
    QString names;
    const QJsonArray daemons = document.object()[QLatin1String("daemons")].toArray();
    for (const QJsonValue& daemon : daemons) {
        qDebug() << "Restart" << daemon.toString();
        names += daemon.toString() + QLatin1Char(' ');
    }
    // What would be started and with what; whether and how is a decision still to be made.
    [[maybe_unused]] const QString script = settings.value(QStringLiteral("Scripts/reloadconfig"));
    return false;
}

} // namespace kor::veltrano::daemons

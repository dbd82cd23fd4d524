#include "network/ConnectionInfo.h"

#include "support/Json.h"
#include "support/ShortCommand.h"

#include <QTextStream>

namespace kor::veltrano::daemons {

QByteArray createConnectionInfo(const QString& connection)
{
    const CommandOutput output =
        runShortCommand(QStringLiteral("nmcli"),
                        {QStringLiteral("connection"), QStringLiteral("show"), connection});
    QTextStream text(output.isFinished ? output.standardOutput : output.standardError);
    QJsonArray lines;
    QString line;
    while (text.readLineInto(&line)) {
        if (!line.isEmpty()) {
            lines.append(QJsonObject{{QStringLiteral("text"), line}});
        }
    }
    return renderJson(QJsonObject{{QStringLiteral("connection"), connection},
                                  {QStringLiteral("message"), lines}});
}

} // namespace kor::veltrano::daemons

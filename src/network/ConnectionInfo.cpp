#include "network/ConnectionInfo.h"

#include "support/Json.h"
#include "support/ShortCommand.h"
#include "support/TextLines.h"

namespace kor::veltrano::daemons {

QByteArray createConnectionInfo(const QString& connection)
{
    const CommandOutput output =
        runShortCommand(QStringLiteral("nmcli"),
                        {QStringLiteral("connection"), QStringLiteral("show"), connection});
    return renderJson(QJsonObject{
        {QStringLiteral("connection"), connection},
        {QStringLiteral("message"), textLines(output.answer())},
    });
}

} // namespace kor::veltrano::daemons

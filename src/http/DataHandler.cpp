#include "http/DataHandler.h"

#include "access/ReadRows.h"
#include "access/WriteRows.h"
#include "daemon/Log.h"
#include "programs/ScriptRunner.h"

#include <utility>

namespace kor::veltrano::daemons {

DataHandler::DataHandler()
{
    scriptRunner = new ScriptRunner;
}

DataHandler::~DataHandler()
{
    delete std::exchange(scriptRunner, nullptr);
}

QByteArray DataHandler::data(const QString& path, const QMap<QString, QString>& parameters) const
{
    if (isLogged(2)) {
        logMessage(QStringLiteral("DataHandler::data with path %1").arg(path), 2);
    }
    if (const auto answer = answerRead({path, parameters})) {
        return *answer;
    }
    logMessage(QStringLiteral("invalid -- %1").arg(path), 0);
    return {};
}

bool DataHandler::setData(const QString& path, const QMap<QString, QString>& parameters,
                          const QByteArray& data, QByteArray& result) const
{
    if (isLogged(2)) {
        // Paths and bodies may hold a "%1" of their own, so both are put in at once.
        logMessage(QStringLiteral("DataHandler::setData with path %1 and data %2")
                       .arg(path, QString::fromUtf8(data.constData())),
                   2);
    }
    if (const auto outcome = applyWrite({path, parameters}, data, result)) {
        return *outcome;
    }
    logMessage(QStringLiteral("Error: DataHandler::setData with path %1").arg(path), 0);
    return false;
}

} // namespace kor::veltrano::daemons

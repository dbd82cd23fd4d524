#include "CommandLog.h"

#include <QJsonArray>

#include <algorithm>
#include <chrono>
#include <utility>

namespace kor::veltrano::sim {

double CommandLog::nowMs()
{
    using Milliseconds = std::chrono::duration<double, std::milli>;
    return Milliseconds(std::chrono::steady_clock::now().time_since_epoch()).count();
}

void CommandLog::add(int client, const QString& method, const QJsonObject& params,
                     bool isCarriedOut, int lineBytes)
{
    const double index = static_cast<double>(firstIndex) + static_cast<double>(entries.size());
    entries.push_back({{{QStringLiteral("index"), index},
                        {QStringLiteral("timeMs"), nowMs()},
                        {QStringLiteral("client"), client},
                        {QStringLiteral("method"), method},
                        {QStringLiteral("params"), params},
                        {QStringLiteral("carriedOut"), isCarriedOut}},
                       lineBytes});
    if (handOn) {
        handOn(entries.back().shown);
    }
    keptBytes += lineBytes;
    while (entries.size() > mostEntries || keptBytes > mostBytes) {
        keptBytes -= entries.front().bytes;
        entries.pop_front();
        ++firstIndex;
    }
}

void CommandLog::handOnTo(std::function<void(const QJsonObject&)> receiver)
{
    handOn = std::move(receiver);
}

QJsonObject CommandLog::list(qint64 since) const
{
    QJsonArray commands;
    const qint64 skipped = std::max<qint64>(0, since - firstIndex);
    for (auto index = static_cast<std::size_t>(skipped); index < entries.size(); ++index) {
        commands.append(entries[index].shown);
    }
    return {{QStringLiteral("commands"), commands}, {QStringLiteral("nowMs"), nowMs()}};
}

void CommandLog::clear()
{
    firstIndex += static_cast<qint64>(entries.size());
    entries.clear();
    keptBytes = 0;
}

} // namespace kor::veltrano::sim

// CommandLog: the notifications that clients have sent, for whoever tests a client.
//
// It keeps the newest ones only, and can hand all of them on. The server writes to it, the control
// door reads it, both on the main thread.
#pragma once

#include <QJsonObject>
#include <QString>

#include <deque>
#include <functional>

namespace kor::veltrano::sim {

class CommandLog
{
public:
    static constexpr std::size_t mostEntries = 10000;
    static constexpr qint64 mostBytes = Q_INT64_C(4) * 1024 * 1024;

    // Milliseconds of the machine's monotonic clock (CLOCK_MONOTONIC), with fractions.
    static double nowMs();

    // Notes that a client's command has reached the robot, which has carried it out or ignored it.
    // lineBytes is the length of the line that it came in.
    void add(int client, const QString& method, const QJsonObject& params, bool isCarriedOut,
             int lineBytes);
    // From now on hands each command on as it is added, in the form in which it is listed.
    void handOnTo(std::function<void(const QJsonObject&)> receiver);
    // The kept entries with an index of at least since, as a JSON object with nowMs.
    QJsonObject list(qint64 since) const;
    // Forgets all entries; the next one's index goes on.
    void clear();

private:
    struct Entry {
        QJsonObject shown;
        int bytes;
    };

    std::deque<Entry> entries;
    qint64 firstIndex = 0;
    qint64 keptBytes = 0;
    std::function<void(const QJsonObject&)> handOn;
};

} // namespace kor::veltrano::sim

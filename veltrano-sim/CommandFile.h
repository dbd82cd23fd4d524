// CommandFile: the file in which a run of the simulator records what clients have commanded.
//
// Each command is one JSON object in a line of its own, and is in the file, for others to read,
// when write() returns. main creates it and lets the log of commands write to it. Main thread only.
#pragma once

#include <QFile>
#include <QJsonObject>

#include <functional>

namespace kor::veltrano::sim {

class CommandFile
{
public:
    // The function is told, once, that a line could not be written and why.
    explicit CommandFile(std::function<void(const QString&)> complain);

    // Opens the file, which is then empty. Gives what went wrong, for a person, else nothing.
    QString open(const QString& path);
    // Appends a command. Where that fails, as on a full disk, the line is left out as a whole.
    void write(const QJsonObject& command);

private:
    QString failure() const;

    QFile file;
    const std::function<void(const QString&)> report;
    bool hasComplained = false;
};

} // namespace kor::veltrano::sim

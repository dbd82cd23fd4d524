#include "CommandFile.h"

#include <QJsonDocument>

#include <utility>

namespace kor::veltrano::sim {

CommandFile::CommandFile(std::function<void(const QString&)> complain) : report(std::move(complain))
{
}

QString CommandFile::open(const QString& path)
{
    file.setFileName(path);
    const auto mode = QIODevice::WriteOnly | QIODevice::Truncate | QIODevice::Unbuffered;
    return file.open(mode) ? QString() : failure();
}

void CommandFile::write(const QJsonObject& command)
{
    const QByteArray line = QJsonDocument(command).toJson(QJsonDocument::Compact) + '\n';
    const qint64 before = file.pos();
    if (file.write(line) == line.size()) {
        return;
    }
    const QString reason = failure();
    // The next line must not begin behind half of this one.
    if (!file.isSequential()) {
        file.resize(before);
    }
    if (!hasComplained) {
        hasComplained = true;
        report(reason);
    }
}

QString CommandFile::failure() const
{
    return QStringLiteral("cannot record in %1: %2").arg(file.fileName(), file.errorString());
}

} // namespace kor::veltrano::sim

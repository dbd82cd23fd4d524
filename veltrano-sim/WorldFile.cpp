#include "WorldFile.h"

#include "WorldReader.h"

#include <QFile>
#include <QJsonDocument>

// Resources of a static library are only there when they are asked for, outside of any namespace.
static void openBuiltInWorlds()
{
    Q_INIT_RESOURCE(worlds);
}

namespace kor::veltrano::sim {

namespace {

constexpr qint64 mostBytes = Q_INT64_C(1024) * 1024;

} // namespace

WorldOutcome parseWorld(const QByteArray& text)
{
    QJsonParseError problem;
    const QJsonDocument document = QJsonDocument::fromJson(text, &problem);
    if (problem.error != QJsonParseError::NoError) {
        return {std::nullopt,
                QStringLiteral("%1 at byte %2")
                    .arg(problem.errorString(), QString::number(problem.offset))};
    }
    if (!document.isObject()) {
        return {std::nullopt, QStringLiteral("the world must be an object")};
    }
    WorldReader reader;
    const World world = reader.read(document.object());
    if (!reader.error().isEmpty()) {
        return {std::nullopt, reader.error()};
    }
    return {world, {}};
}

WorldOutcome readWorld(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        return {std::nullopt, QStringLiteral("%1: %2").arg(path, file.errorString())};
    }
    const QByteArray text = file.read(mostBytes + 1);
    if (text.size() > mostBytes) {
        return {std::nullopt, QStringLiteral("%1: larger than 1 MiB").arg(path)};
    }
    WorldOutcome outcome = parseWorld(text);
    if (!outcome.world) {
        outcome.error = QStringLiteral("%1: %2").arg(path, outcome.error);
    }
    return outcome;
}

QStringList builtInWorlds()
{
    return {QStringLiteral("room"), QStringLiteral("maze")};
}

QString worldPath(const QString& nameOrPath)
{
    if (!builtInWorlds().contains(nameOrPath)) {
        return nameOrPath;
    }
    openBuiltInWorlds();
    return QStringLiteral(":/veltrano-sim/worlds/%1.json").arg(nameOrPath);
}

} // namespace kor::veltrano::sim

// Reading world files: JSON text with the world's name, start, walls, obstacles and marks. Free
// functions.
#pragma once

#include "World.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <optional>

namespace kor::veltrano::sim {

// A world, or why there is none: the text names the member that does not fit.
struct WorldOutcome {
    std::optional<World> world;
    QString error;
};

WorldOutcome parseWorld(const QByteArray& text);
// Reads a file and parses it; the error then names the file as well.
WorldOutcome readWorld(const QString& path);
// The names of the worlds that are built in.
QStringList builtInWorlds();
// The path of a built-in world for its name, and else the text as it is: a path.
QString worldPath(const QString& nameOrPath);

} // namespace kor::veltrano::sim

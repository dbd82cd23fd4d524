// Reading world files: JSON text with the world's name, start, walls and obstacles. Free functions.
#pragma once

#include "World.h"

#include <QByteArray>
#include <QString>

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
// The path of the room that is built in.
QString builtInWorldPath();

} // namespace kor::veltrano::sim

// Options: the command line, read into values.
#pragma once

#include "HostPort.h"

#include <QString>
#include <QStringList>

#include <optional>

namespace kor::veltrano::sim {

struct Options {
    HostPort listen;
    // The control door is closed where this is empty.
    std::optional<HostPort> control;
    quint64 seed = 1;
    // The name of a built-in world, or else a path.
    QString world;
    // The file to record commands in; none where this is empty.
    QString record;

    // What parse() makes of a command line: options to start with, or a text to print. An error's
    // text belongs on stderr, help's on stdout.
    struct Outcome;
    // Reads the arguments, the first of which is the program's name.
    static Outcome parse(const QStringList& arguments);
};

struct Options::Outcome {
    std::optional<Options> options;
    QString text;
    bool isError = false;
};

} // namespace kor::veltrano::sim

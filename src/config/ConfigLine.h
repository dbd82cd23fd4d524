// The shapes of a configuration file's lines, for whoever reads or rewrites one.
#pragma once

#include <QString>

namespace kor::veltrano::daemons {

// Whether the line, from its first character on, is a comment; directives are comments too.
bool isComment(const QString& line);

// Position of the first blank or equals sign, which ends a key; -1 where there is none.
int separatorPosition(const QString& line);

} // namespace kor::veltrano::daemons

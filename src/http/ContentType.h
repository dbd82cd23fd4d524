// The content types of static files.
#pragma once

#include <QString>

#include <string>

namespace kor::veltrano::daemons {

// The type of a path by what stands behind its last dot, compared with case; HTML where that is
// unknown or missing.
std::string contentTypeOf(const QString& path);

} // namespace kor::veltrano::daemons

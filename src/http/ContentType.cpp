#include "http/ContentType.h"

namespace kor::veltrano::daemons {

namespace {

// A dot in a directory's name counts too, so an extension can hold a slash; it is unknown then.
QString extensionOf(const QString& path)
{
    const int dot = path.lastIndexOf(QLatin1Char('.'));
    return dot < 0 ? QString() : path.mid(dot + 1);
}

struct ContentType {
    const char* extension;
    const char* type;
};

constexpr ContentType contentTypes[] = {
    {"ico", "image/x-icon"}, {"png", "image/png"},      {"jpeg", "image/jpeg"},
    {"jpg", "image/jpeg"},   {"js", "text/javascript"}, {"css", "text/css"},
};

} // namespace

std::string contentTypeOf(const QString& path)
{
    const QString extension = extensionOf(path);
    for (const ContentType& candidate : contentTypes) {
        if (extension == QLatin1String(candidate.extension)) {
            return candidate.type;
        }
    }
    return "text/html; charset=utf-8";
}

} // namespace kor::veltrano::daemons

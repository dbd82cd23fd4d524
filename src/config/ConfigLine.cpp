#include "config/ConfigLine.h"

#include <algorithm>

namespace kor::veltrano::daemons {

bool isComment(const QString& line)
{
    return line.startsWith(QLatin1Char('#')) || line.startsWith(QLatin1Char(';'));
}

int separatorPosition(const QString& line)
{
    const auto* separator = std::find_if(line.begin(), line.end(), [](QChar character) {
        return character.isSpace() || character == QLatin1Char('=');
    });
    return separator == line.end() ? -1 : int(separator - line.begin());
}

} // namespace kor::veltrano::daemons

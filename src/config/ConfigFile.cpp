#include "config/ConfigFile.h"

#include "config/ConfigFileParser.h"

#include <QFile>
#include <QFileInfo>
#include <QTextStream>

namespace kor::veltrano::daemons {

bool parseConfigFile(ConfigFile& result, const QString& path)
{
    result = ConfigFile();
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        return false;
    }
    QTextStream text(&file);
    ConfigFileParser(text, QFileInfo(path).absoluteFilePath(), result).parse();
    return true;
}

} // namespace kor::veltrano::daemons

#include "network/SettingsFile.h"

#include "config/ConfigFile.h"

#include <QFile>
#include <QTextStream>

namespace kor::veltrano::daemons {

bool readSettingsFile(const QString& settingsKey,
                      const std::function<void(const QString& line)>& readLine)
{
    QFile file(settings.value(settingsKey));
    if (file.fileName().isEmpty() || !file.open(QIODevice::ReadOnly)) {
        return false;
    }
    QTextStream text(&file);
    QString line;
    while (text.readLineInto(&line)) {
        readLine(line);
    }
    return true;
}

} // namespace kor::veltrano::daemons

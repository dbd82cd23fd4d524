#include "daemon/StartConfiguration.h"

#include "config/ConfigFile.h"

#include <QDebug>
#include <QDir>
#include <QFile>

#include <iostream>

namespace kor::veltrano::daemons {

QString configFileName(const CommandLine& commandLine)
{
    if (!commandLine.configFile.isEmpty()) {
        return commandLine.configFile;
    }
    if (QFile::exists(QStringLiteral("tessarad.conf"))) {
        return QDir::currentPath() + QStringLiteral("/tessarad.conf");
    }
    return QDir::currentPath() + QStringLiteral("/../etc/veltrano/tessarad.conf");
}

void readSettings(const QString& configFile)
{
    std::cout << "confFile = " << configFile.toStdString() << std::endl;
    parseConfigFile(settings, configFile);
    qDebug() << configFile;
    qDebug() << settings.values;
}

void mergeIntoSettings(const CommandLine& commandLine)
{
    if (!commandLine.veltrano.isEmpty()) {
        settings.values[QStringLiteral("Network/veltrano")] = commandLine.veltrano;
    }
    // Shown among the settings, but read by nobody: the listener has a key of its own.
    if (!commandLine.httpServer.isEmpty()) {
        settings.values[QStringLiteral("Network/httpserver")] = commandLine.httpServer;
    }
    settings.values[QStringLiteral("General/resourcepath")] = commandLine.resourcePath.isEmpty()
        ? QDir::currentPath() + QStringLiteral("/../opt/veltrano/veltranoweb")
        : commandLine.resourcePath;
}

void printSettings()
{
    for (auto setting = settings.values.cbegin(); setting != settings.values.cend(); ++setting) {
        std::cout << setting.key().toStdString() << " = " << setting.value().toStdString()
                  << std::endl;
    }
}

} // namespace kor::veltrano::daemons

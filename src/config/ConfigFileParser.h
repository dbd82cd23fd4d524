// ConfigFileParser: one walk over the lines of an annotated configuration file.
//
// Made by parseConfigFile for one file and gone when it is read; knows nothing of where the text
// comes from, so that tests give it text.
#pragma once

#include "config/ConfigFile.h"

#include <QString>
#include <QTextStream>

namespace kor::veltrano::daemons {

class ConfigFileParser
{
public:
    // absolutePath is what entries name as their file; configFile is added to.
    ConfigFileParser(QTextStream& textStream, const QString& absolutePath, ConfigFile& configFile);

    void parse();

private:
    void readLine();
    void readRestartBlock();
    void readWebDirective();
    void readSectionOrKey();

    QTextStream& text;
    ConfigFile& result;
    // The line in hand, trimmed; null at the end of the text.
    QString line;
    QString section;
    // The entry that a @web directive has opened for the next key.
    ConfigEntry pending;
    bool isPending = false;
};

} // namespace kor::veltrano::daemons

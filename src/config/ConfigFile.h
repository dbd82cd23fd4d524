// ConfigFile: what one annotated configuration file says.
//
// A plain value without any link to its file after the parse. The process-wide `settings` is filled
// by main before any other thread starts and only read from then on, so lookups take no lock.
//
// The format is INI-like: sections in brackets, then a key, one separator (a blank or an equals
// sign) and the value to the end of the line. Comments begin with '#' or ';'. Comments that begin
// with '@' right behind that character are directives: '@web' declares how the next key is edited
// in the browser, '@restart command begin' starts a block that names the daemon that owns the file.
#pragma once

#include "config/ConfigEntry.h"

#include <QList>
#include <QMap>
#include <QString>

namespace kor::veltrano::daemons {

struct ConfigFile {
    // Every key, under "Group/key"; a key before the first section stands under "/key".
    QMap<QString, QString> values;
    // The keys that carry a @web directive, in the file's order, one for each occurrence.
    QList<ConfigEntry> entries;
    // The texts of all @cmd lines, each with a line feed behind it.
    QString restartCommands;
    // The text of the last @name line.
    QString restartName;

    // The value of "Group/key", or the reader's own default where the key is absent. A key with an
    // empty value gives the empty text.
    QString value(const QString& key, const QString& defaultValue = QString()) const
    {
        return values.value(key, defaultValue);
    }
};

// Reads the file at path into result, which is emptied first. False, with an empty result, where
// the file cannot be opened. There is no syntax error: what does not fit is ignored.
bool parseConfigFile(ConfigFile& result, const QString& path);

// The daemon's own settings, with the command line merged in.
extern ConfigFile settings;

} // namespace kor::veltrano::daemons

// The safe replacement of a configuration file.
#pragma once

#include <QMap>
#include <QString>

#include <utility>

namespace kor::veltrano::daemons {

// Puts the new values, by "Group/key", into the file at path: the new text is written beside, in
// the directory of temporary files, and swapped in only once it is proved to hold the same keys.
// The old text stays behind as path + ".bak", the temporary file stays too. The new file has the
// owner and the mode of the old one, where the system allows it.
//
// restart gets the file's restartCommands and restartName; both stay empty where nothing changed or
// the replacement failed. False where the file could not be read or replaced, which the log tells
// for all failures but that of opening. Any thread; two files of the same base name share their
// temporary file, so they aren't to be replaced at the same time.
bool replaceConfigFile(const QMap<QString, QString>& changes, const QString& path,
                       std::pair<QString, QString>& restart);

// Where replaceConfigFile writes the new text of a file first.
QString temporaryConfigPath(const QString& path);

} // namespace kor::veltrano::daemons

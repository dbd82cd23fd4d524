// The edited tree on its way back into the configuration files.
#pragma once

#include <QByteArray>
#include <QJsonObject>
#include <QMap>
#include <QString>

namespace kor::veltrano::daemons {

// New values by "Group/key", by file.
using ConfigChanges = QMap<QString, QMap<QString, QString>>;

// The write of /data/config: a tree as createConfigData gives it, of which only the leaves' "file",
// "group", "name" and "value" count. Every file that a leaf names is rewritten where a value
// differs. result gets an object with the array "daemons", the names of the daemons whose files
// changed; it is left alone where there are none. False where the body isn't JSON; a file that
// could not be replaced shows in the log alone. Any thread.
bool writeConfigData(const QByteArray& body, QByteArray& result);

// Adds the values of all leaves at or below node to changes.
void collectConfigValues(const QJsonObject& node, ConfigChanges& changes);

} // namespace kor::veltrano::daemons

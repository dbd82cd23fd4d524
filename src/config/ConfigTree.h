// The configuration files as a tree that the browser shows as a form.
//
// An array of file nodes, of "name", the absolute path, and "_children"; in these the leaves of
// keys before the first section, then a group node for each section with leaves of its own. A leaf
// has "id", "file", "group", "name", "value", "type" ("input" or "select") and, for a choice,
// "params".
#pragma once

#include <QByteArray>
#include <QString>

namespace kor::veltrano::daemons {

// The reply of /data/config: the tree of the system's configuration directory. Any thread.
QByteArray createConfigData();

// The tree of all files "*.conf" of a directory that have a key for the browser. Files that cannot
// be read are left out; there is no other failure.
QByteArray createConfigTree(const QString& directory);

} // namespace kor::veltrano::daemons

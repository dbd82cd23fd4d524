// The robot's services, in their groups, with what systemd says of them.
#pragma once

#include "programs/ServiceState.h"

#include <QByteArray>
#include <QJsonObject>
#include <QStringList>

namespace kor::veltrano::daemons {

// The reply of /data/services: an array of a node a group, of "name" and "_children", the services.
// A group without services is left out. Waits for four short commands. Any thread.
QByteArray createServiceData();

// The names that the script of the setting Scripts/listservices prints for a group, without
// ".service"; one that ends in "@" is a template. Empty where it didn't end in time. Any thread.
QStringList listServices(const QString& group);

// One service: "id", "name", "load", "active", "sub" and, but for instances of a template,
// "activation": "true" unless the unit's path in the unit directory is a symbolic link. Any thread.
QJsonObject createServiceEntry(const QString& name, const ServiceStateMap& states, int& nextId);

} // namespace kor::veltrano::daemons

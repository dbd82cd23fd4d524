// What can be asked of a single service, and what can be done with it.
//
// The writes take the bare name of a unit, without ".service", as their whole body, up to a zero
// byte, and hand it unchecked to the site's script as one argument. True means that the script
// ended within half a second, whatever it did. Any thread.
#pragma once

#include <QByteArray>
#include <QString>

namespace kor::veltrano::daemons {

// The reply of /data/servicestatus/NAME: an array of objects with the "text" of each line that
// "systemctl status" prints and that isn't empty.
QByteArray createServiceStatusData(const QString& name);

// The script of Scripts/startstopservice.
bool startService(const QByteArray& data);
bool stopService(const QByteArray& data);

// The script of Scripts/enableservice.
bool activateService(const QByteArray& data);
bool deactivateService(const QByteArray& data);

} // namespace kor::veltrano::daemons

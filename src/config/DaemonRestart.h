// The request to restart daemons whose configuration files have changed.
#pragma once

#include <QByteArray>

namespace kor::veltrano::daemons {

// The write of /data/restartdaemons: an object with the array "daemons" of names, as the write of
// /data/config gave them. The request is shown on the debug stream and goes no further: no process
// is started. Always false, and result is left alone. Any thread.
bool restartDaemons(const QByteArray& body, QByteArray& result);

} // namespace kor::veltrano::daemons

// What NetworkManager says of one of its connections.
#pragma once

#include <QByteArray>
#include <QString>

namespace kor::veltrano::daemons {

// Asks nmcli, half a second at the most: an object of the text "connection" and the array
// "message", with an object of the text "text" for each line that isn't empty. The lines are those
// of the standard error where nmcli did not end in time. Any thread.
QByteArray createConnectionInfo(const QString& connection);

} // namespace kor::veltrano::daemons

// ServiceState: the state of one systemd unit, as the site's script tells it.
#pragma once

#include <QMap>
#include <QString>

namespace kor::veltrano::daemons {

struct ServiceState {
    // The unit's name without ".service".
    QString name;
    QString load;
    QString active;
    QString sub;
    // One word; kept and never shown.
    QString description;
};

using ServiceStateMap = QMap<QString, ServiceState>;

// Asks the script of the setting Scripts/servicestate, half a second at the most. A line of five
// words, blanks in front of them allowed, is a unit; all others are skipped. Empty where the script
// didn't end in time. Any thread.
ServiceStateMap readServiceStates();

} // namespace kor::veltrano::daemons

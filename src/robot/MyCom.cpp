#include "robot/MyCom.h"

#include "daemon/Log.h"

namespace kor::veltrano::daemons {

MyCom* com = nullptr;

void MyCom::connectedEvent()
{
    logMessage(QStringLiteral("Connected"), 0);
}

void MyCom::disconnectedEvent()
{
    logMessage(QStringLiteral("Disconnected"), 0);
}

} // namespace kor::veltrano::daemons

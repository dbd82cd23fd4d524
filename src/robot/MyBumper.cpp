#include "robot/MyBumper.h"

#include "support/Json.h"

namespace kor::veltrano::daemons {

MyBumper* bumper = nullptr;

QByteArray createBumperData()
{
    return renderJson(QJsonObject{{QStringLiteral("value"), bumper->value()}});
}

} // namespace kor::veltrano::daemons

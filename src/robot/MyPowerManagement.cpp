#include "robot/MyPowerManagement.h"

#include "support/Json.h"

namespace kor::veltrano::daemons {

MyPowerManagement* powerManagement = nullptr;

QByteArray MyPowerManagement::data() const
{
    return renderJson(QJsonObject{
        {QStringLiteral("voltage"), double(voltage())},
        {QStringLiteral("ext_power"), ext_power()},
        {QStringLiteral("num_chargers"), num_chargers()},
        {QStringLiteral("batteryType"), QString::fromUtf8(batteryType())},
        {QStringLiteral("batteryLow"), batteryLow()},
        {QStringLiteral("batteryLowShutdownCounter"), batteryLowShutdownCounter()},
    });
}

} // namespace kor::veltrano::daemons

#include "robot/MyCharger.h"

#include "support/Json.h"

namespace kor::veltrano::daemons {

MyCharger* charger0 = nullptr;
MyCharger* charger1 = nullptr;

namespace {

QString versionText(const api2::Charger& charger)
{
    int major = 0;
    int minor = 0;
    int patch = 0;
    charger.version(&major, &minor, &patch);
    return QStringLiteral("%1.%2.%3").arg(major).arg(minor).arg(patch);
}

} // namespace

MyCharger::MyCharger(int number)
{
    setChargerNumber(number);
}

QByteArray MyCharger::data() const
{
    return renderJson(QJsonObject{
        {QStringLiteral("chargerNumber"), chargerNumber()},
        // Signed in the interface: a clock beyond 2^31 shows as a negative number.
        {QStringLiteral("time"), int(time())},
        {QStringLiteral("batteryVoltage"), double(batteryVoltage())},
        {QStringLiteral("chargingCurrent"), double(chargingCurrent())},
        {QStringLiteral("bat1temp"), double(bat1temp())},
        {QStringLiteral("bat2temp"), double(bat2temp())},
        {QStringLiteral("state_number"), state_number()},
        {QStringLiteral("state"), QString::fromUtf8(state())},
        {QStringLiteral("version"), versionText(*this)},
    });
}

} // namespace kor::veltrano::daemons

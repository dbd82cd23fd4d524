#include "records.h"

#include "Battery.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSysInfo>

#include <cmath>
#include <sys/sysinfo.h>

namespace kor::veltrano::sim {

namespace {

double toHundredths(double value)
{
    return std::round(value * 100) / 100;
}

QByteArray text(const QJsonObject& record)
{
    return QJsonDocument(record).toJson(QJsonDocument::Compact);
}

} // namespace

QByteArray controllerRecord()
{
    struct sysinfo machine = {};
    // It fails only for a bad address; the zeros would then say that nothing is known.
    sysinfo(&machine);
    const auto bytes = [&machine](unsigned long units) {
        return static_cast<double>(units) * static_cast<double>(machine.mem_unit);
    };
    QJsonArray load;
    for (const unsigned long average : machine.loads) {
        load.append(toHundredths(std::ldexp(static_cast<double>(average), -SI_LOAD_SHIFT)));
    }
    return text({{QStringLiteral("hostname"), QSysInfo::machineHostName()},
                 {QStringLiteral("uptime"), static_cast<double>(machine.uptime)},
                 {QStringLiteral("load"), load},
                 {QStringLiteral("memoryTotal"), bytes(machine.totalram)},
                 {QStringLiteral("memoryFree"), bytes(machine.freeram)}});
}

QByteArray batteryPackRecord(const Battery& battery)
{
    const bool isCharging = battery.chargingA() > 0;
    return text({{QStringLiteral("state"),
                  isCharging ? QStringLiteral("charging") : QStringLiteral("discharging")},
                 {QStringLiteral("voltage"), toHundredths(battery.voltageV() * 0.75)},
                 {QStringLiteral("current"), toHundredths(battery.chargingA() - battery.loadA())},
                 {QStringLiteral("temperature"), 25.5},
                 {QStringLiteral("charge"), std::round(battery.charge() * 100)}});
}

} // namespace kor::veltrano::sim

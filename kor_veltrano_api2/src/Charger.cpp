#include "kor/veltrano/api2/Charger.h"

#include "Library.h"
#include "Text.h"

namespace kor::veltrano::api2 {

namespace {

bool exists(int number)
{
    return number >= 0 && number < detail::chargerCount;
}

// What the given member of the charger's last information holds, or the default of a charger that
// does not exist.
template<class Value>
Value last(int number, Value detail::ChargerInfo::*member)
{
    if (!exists(number)) {
        return Value();
    }
    return detail::library().hub.read([number, member](const detail::DeviceState& state) {
        return state.chargers.at(static_cast<std::size_t>(number)).*member;
    });
}

} // namespace

Charger::Charger()
{
    detail::library().roster.add(this);
}

Charger::~Charger()
{
    detail::library().roster.remove(this);
}

void Charger::chargerInfoChanged(unsigned int, float, float, float, float, int, const char*) { }

void Charger::chargerErrorChanged(unsigned int, const char*) { }

void Charger::chargerVersionChanged(int, int, int) { }

void Charger::setChargerNumber(int number)
{
    ownNumber = number;
}

int Charger::chargerNumber() const
{
    return ownNumber;
}

unsigned int Charger::time() const
{
    return last(ownNumber, &detail::ChargerInfo::time);
}

float Charger::batteryVoltage() const
{
    return last(ownNumber, &detail::ChargerInfo::batteryVoltage);
}

float Charger::chargingCurrent() const
{
    return last(ownNumber, &detail::ChargerInfo::chargingCurrent);
}

float Charger::bat1temp() const
{
    return last(ownNumber, &detail::ChargerInfo::bat1temp);
}

float Charger::bat2temp() const
{
    return last(ownNumber, &detail::ChargerInfo::bat2temp);
}

int Charger::state_number() const
{
    return last(ownNumber, &detail::ChargerInfo::stateNumber);
}

const char* Charger::state() const
{
    return detail::keptForThread<Charger>(last(ownNumber, &detail::ChargerInfo::state));
}

void Charger::version(int* major, int* minor, int* patch) const
{
    detail::ChargerVersion version;
    if (const int own = ownNumber; exists(own)) {
        version = detail::library().hub.read([own](const detail::DeviceState& state) {
            return state.chargerVersions.at(static_cast<std::size_t>(own));
        });
    }
    *major = version.majorNumber;
    *minor = version.minorNumber;
    *patch = version.patchNumber;
}

} // namespace kor::veltrano::api2

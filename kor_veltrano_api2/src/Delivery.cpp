#include "Delivery.h"

#include "kor/veltrano/api2/AnalogInputArray.h"
#include "kor/veltrano/api2/Bumper.h"
#include "kor/veltrano/api2/Camera.h"
#include "kor/veltrano/api2/Charger.h"
#include "kor/veltrano/api2/Com.h"
#include "kor/veltrano/api2/ControllerInfo.h"
#include "kor/veltrano/api2/DigitalInputArray.h"
#include "kor/veltrano/api2/DistanceSensorArray.h"
#include "kor/veltrano/api2/FestoolCharger.h"
#include "kor/veltrano/api2/LaserRangeFinder.h"
#include "kor/veltrano/api2/Odometry.h"
#include "kor/veltrano/api2/PowerManagement.h"

namespace kor::veltrano::api2::detail {

void Delivery::run(Library& library)
{
    Roster::Round round(library.roster);
    if (!round.isEntered()) {
        return;
    }
    const std::uint64_t last = library.hub.lastArrival();
    while (const auto queued = library.hub.takeEvent(last)) {
        std::visit(Delivery(library, round, *queued), queued->event);
    }
}

template<class Call>
void Delivery::toCharger(int number, const Call& call) const
{
    round.forEach<Charger>([number, &call](Charger& charger) {
        if (charger.chargerNumber() == number) {
            call(charger);
        }
    });
}

template<class Call>
void Delivery::toCom(const Call& call) const
{
    round.forEach<Com>([this, &call](Com& com) {
        if (com.id().number() == queued.com) {
            call(com);
        }
    });
}

void Delivery::operator()(const AnalogValues& event) const
{
    round.forEach<AnalogInputArray>([&event](AnalogInputArray& inputs) {
        inputs.valuesChangedEvent(event.volts.data(), analogInputCount);
    });
}

void Delivery::operator()(const DigitalValues& event) const
{
    round.forEach<DigitalInputArray>([&event](DigitalInputArray& inputs) {
        inputs.valuesChangedEvent(event.values.data(), digitalInputCount);
    });
}

void Delivery::operator()(const Distances& event) const
{
    round.forEach<DistanceSensorArray>([&event](DistanceSensorArray& sensors) {
        sensors.distancesChangedEvent(event.metres.data(), distanceSensorCount);
    });
}

void Delivery::operator()(const DistanceVoltages& event) const
{
    round.forEach<DistanceSensorArray>([&event](DistanceSensorArray& sensors) {
        sensors.voltagesChangedEvent(event.volts.data(), distanceSensorCount);
    });
}

void Delivery::operator()(const BumperState& event) const
{
    round.forEach<Bumper>([&event](Bumper& bumper) { bumper.bumperEvent(event.isHit); });
}

void Delivery::operator()(const OdometryReadings& event) const
{
    round.forEach<Odometry>([&event](Odometry& odometry) {
        odometry.readingsEvent(event.x, event.y, event.phi, event.vx, event.vy, event.omega,
                               event.sequence);
    });
}

void Delivery::operator()(const PowerReadings& event) const
{
    round.forEach<PowerManagement>([&event](PowerManagement& power) {
        power.readingsEvent(event.voltage, event.current, event.extPower, event.numChargers,
                            event.batteryType.c_str(), event.batteryLow,
                            event.batteryLowShutdownCounter);
    });
}

void Delivery::operator()(const ChargerInfo& event) const
{
    toCharger(event.chargerNumber, [&event](Charger& charger) {
        charger.chargerInfoChanged(event.time, event.batteryVoltage, event.chargingCurrent,
                                   event.bat1temp, event.bat2temp, event.stateNumber,
                                   event.state.c_str());
    });
}

void Delivery::operator()(const ChargerVersion& event) const
{
    toCharger(event.chargerNumber, [&event](Charger& charger) {
        charger.chargerVersionChanged(event.majorNumber, event.minorNumber, event.patchNumber);
    });
}

void Delivery::operator()(const ChargerError& event) const
{
    toCharger(event.chargerNumber, [&event](Charger& charger) {
        charger.chargerErrorChanged(event.time, event.message.c_str());
    });
}

void Delivery::operator()(const ControllerRecord& event) const
{
    round.forEach<ControllerInfo>([&event](ControllerInfo& info) {
        info.infoChangedEvent(event.bytes.data(), static_cast<int>(event.bytes.size()));
    });
}

void Delivery::operator()(const FestoolRecord& event) const
{
    round.forEach<FestoolCharger>([&event](FestoolCharger& charger) {
        charger.infoChangedEvent(event.bytes.data(), static_cast<int>(event.bytes.size()));
    });
}

void Delivery::operator()(const CameraImage& event) const
{
    round.forEach<Camera>([this, &event](Camera& camera) {
        if (library.hub.isMeantFor(camera.slot.get(), queued)) {
            const auto* bytes = reinterpret_cast<const unsigned char*>(event.bytes->constData());
            camera.imageReceivedEvent(bytes, static_cast<unsigned int>(event.bytes->size()),
                                      event.width, event.height, event.step);
        }
    });
}

void Delivery::operator()(const Scan& event) const
{
    round.forEach<LaserRangeFinder>([this, &event](LaserRangeFinder& scanner) {
        if (library.hub.isMeantFor(scanner.binding.get(), queued)) {
            scanner.scanEvent(*event.readings);
        }
    });
}

void Delivery::operator()(const Connected&) const
{
    toCom([](Com& com) { com.connectedEvent(); });
}

void Delivery::operator()(const Disconnected&) const
{
    toCom([](Com& com) { com.disconnectedEvent(); });
}

} // namespace kor::veltrano::api2::detail

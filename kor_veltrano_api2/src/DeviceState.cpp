#include "DeviceState.h"

namespace kor::veltrano::api2::detail {

namespace {

struct Store {
    DeviceState& state;

    void operator()(const AnalogValues& event) const { state.analogInputs = event; }
    void operator()(const DigitalValues& event) const { state.digitalInputs = event; }
    void operator()(const Distances& event) const { state.distances = event; }
    void operator()(const BumperState& event) const { state.bumper = event; }
    void operator()(const PowerReadings& event) const { state.power = event; }
    void operator()(const ChargerInfo& event) const
    {
        state.chargers.at(static_cast<std::size_t>(event.chargerNumber)) = event;
    }
    void operator()(const ChargerVersion& event) const
    {
        state.chargerVersions.at(static_cast<std::size_t>(event.chargerNumber)) = event;
    }
    void operator()(const Scan& event) const { state.scan = event.readings; }
    template<class Other>
    void operator()(const Other&) const
    {
    }
};

} // namespace

void DeviceState::store(const Event& event)
{
    std::visit(Store{*this}, event);
}

} // namespace kor::veltrano::api2::detail

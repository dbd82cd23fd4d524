#include "kor/veltrano/api2/LaserRangeFinder.h"

#include "Library.h"

namespace kor::veltrano::api2 {

LaserRangeFinder::LaserRangeFinder(const ComId& id) : binding(std::make_unique<detail::Binding>())
{
    detail::library().hub.addScanner(binding.get(), id.number());
    detail::library().roster.add(this);
}

LaserRangeFinder::~LaserRangeFinder()
{
    detail::library().roster.remove(this);
    detail::library().hub.removeScanner(binding.get());
}

void LaserRangeFinder::scanEvent(const LaserRangeFinderReadings&) { }

void LaserRangeFinder::setComId(const ComId& id)
{
    detail::library().hub.bindScanner(binding.get(), id.number());
}

ComId LaserRangeFinder::comId() const
{
    return ComId(detail::library().hub.withSlot(
        binding.get(), [](const detail::Binding& own) { return own.com; }));
}

LaserRangeFinderReadings LaserRangeFinder::readings() const
{
    // The lists are copied after the lock is released: only the pointer is taken under it.
    const auto scan =
        detail::library().hub.read([](const detail::DeviceState& state) { return state.scan; });
    return scan ? *scan : LaserRangeFinderReadings();
}

} // namespace kor::veltrano::api2

// LaserRangeFinder: the laser scanner, which sends scans only while an object is bound to a
// connection. The last scan stays when the object is detached. All operations may be called on any
// thread.
#pragma once

#include "kor/veltrano/api2/ComId.h"
#include "kor/veltrano/api2/LaserRangeFinderReadings.h"

#include <memory>

namespace kor::veltrano::api2 {

namespace detail {
class Delivery;
struct Binding;
} // namespace detail

class LaserRangeFinder
{
public:
    // Bound to the given connection, or detached with ComId::null().
    explicit LaserRangeFinder(const ComId& id);
    virtual ~LaserRangeFinder();
    LaserRangeFinder(const LaserRangeFinder&) = delete;
    LaserRangeFinder& operator=(const LaserRangeFinder&) = delete;

    // A scan has arrived; it is valid during the call.
    virtual void scanEvent(const LaserRangeFinderReadings& scan);

    // Binds the object to a connection and subscribes to its scans; ComId::null() detaches it.
    void setComId(const ComId& id);
    // The connection that the object is bound to, or ComId::null().
    ComId comId() const;

    // The last scan received; empty before the first.
    LaserRangeFinderReadings readings() const;

private:
    friend class detail::Delivery;

    // Guarded by the library's lock.
    std::unique_ptr<detail::Binding> binding;
};

} // namespace kor::veltrano::api2

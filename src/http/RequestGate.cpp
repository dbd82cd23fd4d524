#include "http/RequestGate.h"

namespace kor::veltrano::daemons {

RequestGate::Pass::Pass(RequestGate& gate) : owner(gate)
{
    const std::lock_guard lock(owner.mutex);
    isGranted = !owner.isClosed;
    if (isGranted) {
        ++owner.inside;
    }
}

RequestGate::Pass::~Pass()
{
    if (!isGranted) {
        return;
    }
    const std::lock_guard lock(owner.mutex);
    --owner.inside;
    if (owner.isClosed) {
        owner.left.notify_all();
    }
}

void RequestGate::close()
{
    std::unique_lock lock(mutex);
    isClosed = true;
    left.wait(lock, [this] { return inside == 0; });
}

} // namespace kor::veltrano::daemons

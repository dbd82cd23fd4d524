#include "Hub.h"

#include "rpc/Message.h"

#include <algorithm>
#include <utility>

namespace kor::veltrano::api2::detail {

void Hub::sendCommand(const QByteArray& method, const QByteArray& params)
{
    const QByteArray line = rpc::notificationLineOf(method, params);
    {
        const std::lock_guard lock(mutex);
        if (!outbox.isOpen()) {
            return;
        }
        const bool isFirst = outbox.isEmpty();
        if (!outbox.add(line)) {
            end();
        } else if (!isFirst) {
            // Whoever gave the first of the lines that wait wakes the socket's thread for all.
            return;
        }
    }
    wakeup.notify();
}

template<class Slot>
void Hub::attach(Slot* slot, int com)
{
    slot->com = com;
    slot->boundAfter = arrivals;
}

void Hub::addCamera(CameraSlot* slot, int com)
{
    const std::lock_guard lock(mutex);
    attach(slot, com);
    cameras.add(slot);
    updateSubscriptions();
}

void Hub::bindCamera(CameraSlot* slot, int com)
{
    const std::lock_guard lock(mutex);
    if (slot->com != com) {
        attach(slot, com);
        slot->image.reset();
        updateSubscriptions();
    }
}

void Hub::removeCamera(CameraSlot* slot)
{
    const std::lock_guard lock(mutex);
    cameras.remove(slot);
    updateSubscriptions();
}

void Hub::addScanner(Binding* slot, int com)
{
    const std::lock_guard lock(mutex);
    attach(slot, com);
    scanners.add(slot);
    updateSubscriptions();
}

void Hub::bindScanner(Binding* slot, int com)
{
    const std::lock_guard lock(mutex);
    if (slot->com != com) {
        attach(slot, com);
        updateSubscriptions();
    }
}

void Hub::removeScanner(Binding* slot)
{
    const std::lock_guard lock(mutex);
    scanners.remove(slot);
    updateSubscriptions();
}

bool Hub::isMeantFor(const Binding* slot, const QueuedEvent& event) const
{
    const std::lock_guard lock(mutex);
    return slot->com == event.com && event.arrival > slot->boundAfter;
}

std::uint64_t Hub::lastArrival() const
{
    const std::lock_guard lock(mutex);
    return arrivals;
}

std::optional<QueuedEvent> Hub::takeEvent(std::uint64_t notAfter)
{
    const std::lock_guard lock(mutex);
    return events.takeNext(notAfter);
}

void Hub::startRequest(std::uint64_t request)
{
    const std::lock_guard lock(mutex);
    currentRequest = std::max(currentRequest, request);
    if (upRequest < currentRequest) {
        end();
    }
}

bool Hub::connectionUp(std::uint64_t request, int com)
{
    const std::lock_guard lock(mutex);
    if (request < currentRequest) {
        return false;
    }
    upRequest = request;
    upCom = com;
    outbox.start();
    enqueue(Connected());
    updateSubscriptions();
    return true;
}

void Hub::connectionEnded(std::uint64_t request)
{
    const std::lock_guard lock(mutex);
    if (upRequest == request) {
        end();
    }
}

bool Hub::isUp(std::uint64_t request) const
{
    const std::lock_guard lock(mutex);
    return upRequest == request;
}

void Hub::receive(std::uint64_t request, Event event)
{
    const std::lock_guard lock(mutex);
    if (upRequest != request) {
        return;
    }
    if (const auto* image = std::get_if<CameraImage>(&event)) {
        const std::vector<CameraSlot*> bound = cameras.boundTo(upCom);
        if (bound.empty()) {
            return;
        }
        for (CameraSlot* slot : bound) {
            slot->image = *image;
            ++slot->imagesReceived;
        }
    }
    state.store(event);
    enqueue(std::move(event));
}

std::string Hub::takeCommands()
{
    const std::lock_guard lock(mutex);
    return outbox.take();
}

void Hub::end()
{
    if (upRequest == 0) {
        return;
    }
    outbox.close();
    enqueue(Disconnected());
    upCom = 0;
    upRequest = 0;
    updateSubscriptions();
}

void Hub::enqueue(Event event)
{
    events.push({++arrivals, upCom, std::move(event)});
}

// The server forgets with the connection what it was told, and so does update() without one.
void Hub::updateSubscriptions()
{
    const auto tell = [this](const QString& device, bool isSubscribed) {
        const QString wish =
            isSubscribed ? QStringLiteral(".subscribe") : QStringLiteral(".unsubscribe");
        if (!outbox.add(rpc::notificationLine(device + wish, {}))) {
            end();
        }
        wakeup.notify();
    };
    if (cameras.update(upCom)) {
        tell(QStringLiteral("camera"), cameras.isSubscribed());
    }
    if (scanners.update(upCom)) {
        tell(QStringLiteral("laserRangeFinder"), scanners.isSubscribed());
    }
}

} // namespace kor::veltrano::api2::detail

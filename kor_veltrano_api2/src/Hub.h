// Hub: where the socket's thread, the getters and processEvents() meet.
//
// One exists in the process. It holds the device state, the events not yet delivered, the bindings
// of cameras and scanners and the commands to be sent, all under its own lock, which is held for
// copies only and never during a handler. The socket's thread calls the group of the connection;
// all else may be called on any thread.
#pragma once

#include "CameraSlot.h"
#include "DeviceState.h"
#include "EventQueue.h"
#include "Outbox.h"
#include "Subscription.h"
#include "Wakeup.h"

#include <QByteArray>

#include <cstdint>
#include <mutex>
#include <optional>
#include <string>

namespace kor::veltrano::api2::detail {

class Hub
{
public:
    explicit Hub(const Wakeup& socketThread) : wakeup(socketThread) { }

    // What read makes of the state; it is called under the lock and must only copy.
    template<class Read>
    auto read(const Read& copy) const
    {
        const std::lock_guard lock(mutex);
        return copy(state);
    }

    // Sends a notification, or drops it where the connection is not up. params is the text of a
    // JSON object.
    void sendCommand(const QByteArray& method, const QByteArray& params);

    void addCamera(CameraSlot* slot, int com);
    void bindCamera(CameraSlot* slot, int com);
    void removeCamera(CameraSlot* slot);
    void addScanner(Binding* slot, int com);
    void bindScanner(Binding* slot, int com);
    void removeScanner(Binding* slot);
    // What copy makes of the camera's slot, or of any binding, under the lock.
    template<class Slot, class Copy>
    auto withSlot(Slot* slot, const Copy& copy) const
    {
        const std::lock_guard lock(mutex);
        return copy(*slot);
    }
    // True where the object was bound to the event's connection when it arrived, and still is.
    bool isMeantFor(const Binding* slot, const QueuedEvent& event) const;

    // The number of the last arrival, a limit for takeEvent().
    std::uint64_t lastArrival() const;
    std::optional<QueuedEvent> takeEvent(std::uint64_t notAfter);

    // The connection. A request is what connectToServer() makes; their numbers grow.

    // Ends the connection of every earlier request: it takes no more commands and gives no more
    // events, whatever its socket still does.
    void startRequest(std::uint64_t request);
    // The server has answered the opening request. False where the request is outdated.
    bool connectionUp(std::uint64_t request, int com);
    void connectionEnded(std::uint64_t request);
    bool isUp(std::uint64_t request) const;
    // Keeps and queues an event of the request's connection while that is up.
    void receive(std::uint64_t request, Event event);
    // The commands to be sent on the connection of the request that came up last.
    std::string takeCommands();

private:
    void end();
    void enqueue(Event event);
    void updateSubscriptions();
    template<class Slot>
    void attach(Slot* slot, int com);

    const Wakeup& wakeup;
    mutable std::mutex mutex;
    DeviceState state;
    EventQueue events;
    std::uint64_t arrivals = 0;
    Subscription<CameraSlot> cameras;
    Subscription<Binding> scanners;
    Outbox outbox;
    // The Com and the request whose connection is up, or 0.
    int upCom = 0;
    std::uint64_t upRequest = 0;
    std::uint64_t currentRequest = 0;
};

} // namespace kor::veltrano::api2::detail

// EventQueue: the events that processEvents() has not delivered yet, in order of arrival.
//
// Of a device's state only the newest event is kept, so that the queue is bounded however seldom
// it is emptied. Events of the connection are all kept, up to a limit; past it the two oldest go
// together, so that connected and disconnected still alternate. A plain value inside the hub, which
// guards it with its lock.
#pragma once

#include "Events.h"

#include <cstdint>
#include <deque>
#include <optional>

namespace kor::veltrano::api2::detail {

// An event, its place in the order of arrival, which grows from event to event, and the handle of
// the Com whose connection brought it.
struct QueuedEvent {
    std::uint64_t arrival = 0;
    int com = 0;
    Event event;
};

class EventQueue
{
public:
    static constexpr std::size_t maxConnectionEvents = 32;

    // The event's arrival must be greater than that of all events before.
    void push(QueuedEvent event);
    // The oldest event that arrived no later than lastArrival.
    std::optional<QueuedEvent> takeNext(std::uint64_t lastArrival);
    std::size_t size() const { return queue.size(); }

private:
    void boundConnectionEvents();

    std::deque<QueuedEvent> queue;
};

} // namespace kor::veltrano::api2::detail

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

namespace kor::veltrano::api2::detail
{

// An event and its place in the order of arrival, which grows from event to event.
struct QueuedEvent {
    std::uint64_t arrival = 0;
    Event event;
};

class EventQueue
{
public:
    static constexpr std::size_t maxConnectionEvents = 32;

    // arrival must be greater than that of all events before.
    void push(std::uint64_t arrival, Event event);
    // The oldest event that arrived no later than lastArrival.
    std::optional<QueuedEvent> takeNext(std::uint64_t lastArrival);
    std::size_t size() const { return queue.size(); }

private:
    void boundConnectionEvents();

    std::deque<QueuedEvent> queue;
};

} // namespace kor::veltrano::api2::detail

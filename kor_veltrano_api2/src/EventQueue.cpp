#include "EventQueue.h"

#include <algorithm>
#include <utility>

namespace kor::veltrano::api2::detail {

namespace {

bool isOfConnection(const Event& event)
{
    return std::holds_alternative<Connected>(event) || std::holds_alternative<Disconnected>(event);
}

// Tells the states of the two chargers apart; all other devices exist once.
int unitNumber(const Event& event)
{
    return std::visit(
        [](const auto& value) {
            using Value = std::decay_t<decltype(value)>;
            if constexpr (
                std::is_same_v<
                    Value,
                    ChargerInfo> || std::is_same_v<Value, ChargerVersion> || std::is_same_v<Value, ChargerError>) {
                return value.chargerNumber;
            } else {
                return 0;
            }
        },
        event);
}

bool isSameState(const Event& a, const Event& b)
{
    return a.index() == b.index() && unitNumber(a) == unitNumber(b) && !isOfConnection(a);
}

} // namespace

void EventQueue::push(QueuedEvent event)
{
    const auto older =
        std::find_if(queue.begin(), queue.end(), [&event](const QueuedEvent& queued) {
            return isSameState(queued.event, event.event);
        });
    if (older != queue.end()) {
        queue.erase(older);
    }
    queue.push_back(std::move(event));
    boundConnectionEvents();
}

std::optional<QueuedEvent> EventQueue::takeNext(std::uint64_t lastArrival)
{
    if (queue.empty() || queue.front().arrival > lastArrival) {
        return std::nullopt;
    }
    QueuedEvent next = std::move(queue.front());
    queue.pop_front();
    return next;
}

void EventQueue::boundConnectionEvents()
{
    const auto isConnectionEvent = [](const QueuedEvent& queued) {
        return isOfConnection(queued.event);
    };
    const auto count = std::count_if(queue.begin(), queue.end(), isConnectionEvent);
    if (static_cast<std::size_t>(count) <= maxConnectionEvents) {
        return;
    }
    for (int dropped = 0; dropped < 2; ++dropped) {
        queue.erase(std::find_if(queue.begin(), queue.end(), isConnectionEvent));
    }
}

} // namespace kor::veltrano::api2::detail

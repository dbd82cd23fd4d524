#include "Roster.h"

#include <algorithm>

namespace kor::veltrano::api2::detail {

Roster::Round::Round(Roster& objects) : roster(objects)
{
    const std::lock_guard lock(roster.mutex);
    entered = roster.roundThread == std::thread::id();
    if (entered) {
        roster.roundThread = std::this_thread::get_id();
        newestEntry = roster.lastNumber;
    }
}

Roster::Round::~Round()
{
    if (entered) {
        const std::lock_guard lock(roster.mutex);
        roster.roundThread = std::thread::id();
    }
}

Roster::CallGuard::CallGuard(Roster& objects, std::uint64_t entryNumber) : roster(objects)
{
    const std::lock_guard lock(roster.mutex);
    alive = std::any_of(roster.entries.begin(), roster.entries.end(),
                        [entryNumber](const Entry& e) { return e.number == entryNumber; });
    if (alive) {
        roster.called = entryNumber;
    }
}

Roster::CallGuard::~CallGuard()
{
    if (alive) {
        const std::lock_guard lock(roster.mutex);
        roster.called = 0;
        roster.callEnded.notify_all();
    }
}

void Roster::remove(const void* object)
{
    std::unique_lock lock(mutex);
    const auto entry = std::find_if(entries.begin(), entries.end(),
                                    [object](const Entry& e) { return e.object == object; });
    if (entry == entries.end()) {
        return;
    }
    const std::uint64_t number = entry->number;
    entries.erase(entry);
    // A handler that destroys its own object must not wait for itself.
    while (called == number && roundThread != std::this_thread::get_id()) {
        callEnded.wait(lock);
    }
}

void Roster::addEntry(std::type_index type, void* object)
{
    const std::lock_guard lock(mutex);
    entries.push_back({++lastNumber, type, object});
}

std::vector<Roster::Entry> Roster::entriesOf(std::type_index type, std::uint64_t newestEntry)
{
    const std::lock_guard lock(mutex);
    std::vector<Entry> result;
    std::copy_if(
        entries.begin(), entries.end(), std::back_inserter(result),
        [type, newestEntry](const Entry& e) { return e.type == type && e.number <= newestEntry; });
    return result;
}

} // namespace kor::veltrano::api2::detail

// Roster: the living connection and device objects, and the one that is being called.
//
// Constructors and destructors of the public classes enter and leave it on any thread; the thread
// inside processEvents() calls the objects through it. Its own lock is never held during a call, so
// a handler may create and destroy objects, itself included. An object that leaves while another
// thread is inside one of its handlers waits for that handler's end; after it has left it is
// called no more.
#pragma once

#include <condition_variable>
#include <cstdint>
#include <mutex>
#include <thread>
#include <typeindex>
#include <vector>

namespace kor::veltrano::api2::detail {

class Roster
{
public:
    // One delivery at a time: holds while isEntered() is true, and ends with the object.
    class Round
    {
    public:
        explicit Round(Roster& objects);
        ~Round();
        Round(const Round&) = delete;
        Round& operator=(const Round&) = delete;

        // False while another round is going on, on this thread or another: there is then
        // nothing left to do for this one.
        bool isEntered() const { return entered; }
        // Calls each object of the class that had entered the roster when the round began and
        // is still there, in the order of entering.
        template<class Device, class Call>
        void forEach(const Call& call)
        {
            for (const Entry& entry : roster.entriesOf(typeid(Device), newestEntry)) {
                const CallGuard guard(roster, entry.number);
                if (guard.isAlive()) {
                    call(*static_cast<Device*>(entry.object));
                }
            }
        }

    private:
        Roster& roster;
        bool entered = false;
        std::uint64_t newestEntry = 0;
    };

    template<class Device>
    void add(Device* device)
    {
        addEntry(typeid(Device), device);
    }
    // Returns when no other thread is inside a handler of the object.
    void remove(const void* object);

private:
    struct Entry {
        std::uint64_t number;
        std::type_index type;
        void* object;
    };

    class CallGuard
    {
    public:
        CallGuard(Roster& objects, std::uint64_t entryNumber);
        ~CallGuard();
        CallGuard(const CallGuard&) = delete;
        CallGuard& operator=(const CallGuard&) = delete;

        bool isAlive() const { return alive; }

    private:
        Roster& roster;
        bool alive = false;
    };

    void addEntry(std::type_index type, void* object);
    std::vector<Entry> entriesOf(std::type_index type, std::uint64_t newestEntry);

    std::mutex mutex;
    std::condition_variable callEnded;
    std::vector<Entry> entries;
    std::uint64_t lastNumber = 0;
    // Number of the entry that is being called, or 0, and the thread of the round.
    std::uint64_t called = 0;
    std::thread::id roundThread;
};

} // namespace kor::veltrano::api2::detail

// OpenFiles: how many files are being sent.
//
// The process must not end while one is open: the library waits for a pending close on threads that
// are gone by then. Entries live in the replies' continuations, on any thread; main waits for them.
#pragma once

#include <chrono>
#include <condition_variable>
#include <mutex>

namespace kor::veltrano::daemons {

class OpenFiles
{
public:
    // One open file, counted for as long as the entry lives.
    class Entry
    {
    public:
        explicit Entry(OpenFiles& openFiles);
        ~Entry();
        Entry(const Entry&) = delete;
        Entry& operator=(const Entry&) = delete;

    private:
        OpenFiles& files;
    };

    // Returns when no file is open, or when the time is up: false then.
    bool waitUntilNone(std::chrono::milliseconds timeout);

private:
    std::mutex mutex;
    std::condition_variable changed;
    int count = 0;
};

} // namespace kor::veltrano::daemons

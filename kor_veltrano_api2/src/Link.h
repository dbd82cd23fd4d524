// Link: what the Com objects want of the connection, and the life of the socket's thread.
//
// One exists in the process. Com's operations call it on any thread. The socket's thread, which
// runs between connectToServer() and shutdown(), asks it for its job: there is one at a time, that
// of the last Com that called connectToServer(). Its mutex guards the settings and the request;
// threadMutex is taken before it and held while the thread is started and ended.
#pragma once

#include "Hub.h"
#include "Wakeup.h"

#include <condition_variable>
#include <cstdint>
#include <map>
#include <mutex>
#include <string>
#include <thread>

namespace kor::veltrano::api2::detail {

// What the socket's thread has to do.
struct Job {
    bool mustStop = false;
    // The Com to connect for, or 0 for none, and the number of its request.
    int com = 0;
    std::uint64_t request = 0;
    std::string address;
    bool reconnects = false;
};

class Link
{
public:
    Link(Hub& hubOfProcess, const Wakeup& socketThread)
        : hub(hubOfProcess), wakeup(socketThread) { }

    // Gives a handle that no other Com has had.
    int addCom();
    // Ends the connection where it is this Com's.
    void removeCom(int com);
    void setAddress(int com, const std::string& address);
    void setAutoReconnectEnabled(int com, bool enable);
    // Starts the thread where needed and makes a new request. With isBlocking it returns when the
    // request's first attempt has ended, or the request.
    void connectToServer(int com, bool isBlocking);
    // Ends the thread. May be called twice.
    void shutdown();
    // The same at the process's end, when no thread may be started again.
    void shutdownForGood();

    // For the socket's thread, which tells a request by its number.
    Job job() const;
    bool isCurrent(std::uint64_t number) const;
    // The request's connection is up, or an attempt has failed.
    void attemptDecided(std::uint64_t number);

private:
    struct Settings {
        std::string address;
        bool reconnects = false;
    };

    // Under mutex. The job is then com's, or nobody's with 0.
    void newRequest(int com);
    // Under threadMutex.
    void startThread();
    void endThread();

    Hub& hub;
    const Wakeup& wakeup;

    std::mutex threadMutex;
    std::thread thread;
    bool isOver = false;

    mutable std::mutex mutex;
    std::condition_variable changed;
    std::map<int, Settings> settings;
    int lastCom = 0;
    int jobCom = 0;
    std::uint64_t request = 0;
    std::uint64_t decidedRequest = 0;
    bool mustStop = false;
};

} // namespace kor::veltrano::api2::detail

#include "Link.h"

#include "SocketThread.h"

#include <csignal>

#include <pthread.h>

namespace kor::veltrano::api2::detail {

int Link::addCom()
{
    const std::lock_guard lock(mutex);
    settings.emplace(++lastCom, Settings());
    return lastCom;
}

void Link::removeCom(int com)
{
    const std::lock_guard lock(mutex);
    settings.erase(com);
    if (jobCom == com) {
        newRequest(0);
    }
}

void Link::setAddress(int com, const std::string& address)
{
    const std::lock_guard lock(mutex);
    settings[com].address = address;
}

void Link::setAutoReconnectEnabled(int com, bool enable)
{
    const std::lock_guard lock(mutex);
    settings[com].reconnects = enable;
    wakeup.notify();
}

void Link::connectToServer(int com, bool isBlocking)
{
    std::uint64_t own = 0;
    {
        // Held until the request is made, so that no shutdown() comes between it and its thread.
        const std::lock_guard threadLock(threadMutex);
        if (isOver) {
            return;
        }
        startThread();
        const std::lock_guard lock(mutex);
        newRequest(com);
        own = request;
    }
    std::unique_lock lock(mutex);
    while (isBlocking && decidedRequest < own && request == own) {
        changed.wait(lock);
    }
}

void Link::shutdown()
{
    const std::lock_guard lock(threadMutex);
    endThread();
}

void Link::shutdownForGood()
{
    const std::lock_guard lock(threadMutex);
    isOver = true;
    endThread();
}

Job Link::job() const
{
    const std::lock_guard lock(mutex);
    Job result{mustStop, jobCom, request, {}, false};
    const auto own = settings.find(jobCom);
    if (own != settings.end()) {
        result.address = own->second.address;
        result.reconnects = own->second.reconnects;
    }
    return result;
}

bool Link::isCurrent(std::uint64_t number) const
{
    const std::lock_guard lock(mutex);
    return !mustStop && request == number;
}

void Link::attemptDecided(std::uint64_t number)
{
    const std::lock_guard lock(mutex);
    decidedRequest = std::max(decidedRequest, number);
    changed.notify_all();
}

void Link::newRequest(int com)
{
    jobCom = com;
    ++request;
    hub.startRequest(request);
    changed.notify_all();
    wakeup.notify();
}

void Link::startThread()
{
    if (thread.joinable()) {
        return;
    }
    // The process's signals are for the threads that know of them.
    sigset_t all;
    sigset_t previous;
    ::sigfillset(&all);
    ::pthread_sigmask(SIG_SETMASK, &all, &previous);
    thread = std::thread([this] { SocketThread(*this, hub, wakeup).run(); });
    ::pthread_sigmask(SIG_SETMASK, &previous, nullptr);
}

void Link::endThread()
{
    if (!thread.joinable()) {
        return;
    }
    {
        const std::lock_guard lock(mutex);
        mustStop = true;
    }
    wakeup.notify();
    thread.join();
    const std::lock_guard lock(mutex);
    mustStop = false;
    newRequest(0);
}

} // namespace kor::veltrano::api2::detail

#include "SocketThread.h"

#include "Session.h"

#include <poll.h>

namespace kor::veltrano::api2::detail {

namespace {

constexpr std::chrono::seconds retryPause(1);
constexpr std::chrono::seconds connectLimit(5);

} // namespace

void SocketThread::run()
{
    std::uint64_t tried = 0;
    Clock::time_point nextAttempt;
    for (Job job = link.job(); !job.mustStop; job = link.job()) {
        const bool isRetry = job.request == tried;
        if (job.com == 0 || (isRetry && !job.reconnects)) {
            wakeup.wait(-1, 0, Clock::time_point::max());
        } else if (isRetry && Clock::now() < nextAttempt) {
            wakeup.wait(-1, 0, nextAttempt);
        } else {
            attempt(job);
            link.attemptDecided(job.request);
            tried = job.request;
            nextAttempt = Clock::now() + retryPause;
        }
    }
}

void SocketThread::attempt(const Job& job)
{
    const std::optional<Address> address = parseAddress(QByteArray::fromStdString(job.address));
    if (!address) {
        return;
    }
    for (const Endpoint& endpoint : lookUp(*address, job)) {
        Socket socket(endpoint);
        if (waitForConnection(socket, job)) {
            Session(socket, link, hub, wakeup, job).run();
            return;
        }
        if (!link.isCurrent(job.request)) {
            return;
        }
    }
}

std::vector<Endpoint> SocketThread::lookUp(const Address& address, const Job& job)
{
    const HostLookup lookup(address, wakeup);
    while (link.isCurrent(job.request)) {
        if (const auto endpoints = lookup.result()) {
            return *endpoints;
        }
        wakeup.wait(-1, 0, Clock::time_point::max());
    }
    return {};
}

bool SocketThread::waitForConnection(const Socket& socket, const Job& job)
{
    const Clock::time_point deadline = Clock::now() + connectLimit;
    while (socket.descriptor() >= 0 && link.isCurrent(job.request) && Clock::now() < deadline) {
        if (wakeup.wait(socket.descriptor(), POLLOUT, deadline) != 0) {
            return socket.isConnected();
        }
    }
    return false;
}

} // namespace kor::veltrano::api2::detail

#include "Wakeup.h"

#include <algorithm>
#include <array>
#include <cstdint>

#include <poll.h>
#include <sys/eventfd.h>
#include <unistd.h>

namespace kor::veltrano::api2::detail {

namespace {

// Rounded up, so that the deadline has passed when the wait is over.
int pollTimeoutMs(Clock::time_point deadline)
{
    using std::chrono::milliseconds;
    if (deadline == Clock::time_point::max()) {
        return -1;
    }
    const auto left = std::chrono::ceil<milliseconds>(deadline - Clock::now());
    return static_cast<int>(std::clamp(left, milliseconds(0), milliseconds(60'000)).count());
}

} // namespace

Wakeup::Wakeup() : counter(::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)) { }

Wakeup::~Wakeup()
{
    ::close(counter);
}

void Wakeup::notify() const
{
    const std::uint64_t one = 1;
    // Fails only where the counter is full, and then the wait ends anyhow.
    [[maybe_unused]] const ssize_t written = ::write(counter, &one, sizeof one);
}

short Wakeup::wait(int descriptor, short events, Clock::time_point deadline) const
{
    std::array<pollfd, 2> polled{pollfd{descriptor, events, 0}, pollfd{counter, POLLIN, 0}};
    if (::poll(polled.data(), polled.size(), pollTimeoutMs(deadline)) <= 0) {
        return 0;
    }
    if (polled[1].revents != 0) {
        std::uint64_t notifications = 0;
        [[maybe_unused]] const ssize_t got = ::read(counter, &notifications, sizeof notifications);
    }
    return polled[0].revents;
}

} // namespace kor::veltrano::api2::detail

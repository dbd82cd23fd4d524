#include "HostLookup.h"

#include <cstring>
#include <mutex>
#include <system_error>
#include <thread>

#include <netdb.h>

namespace kor::veltrano::api2::detail {

struct HostLookup::Shared {
    std::mutex mutex;
    std::optional<std::vector<Endpoint>> result;
};

namespace {

std::vector<Endpoint> resolve(const Address& address, int flags)
{
    addrinfo hints{};
    hints.ai_family = AF_UNSPEC;
    hints.ai_socktype = SOCK_STREAM;
    hints.ai_flags = flags | AI_NUMERICSERV;
    addrinfo* first = nullptr;
    const std::string port = std::to_string(address.port);
    if (::getaddrinfo(address.host.c_str(), port.c_str(), &hints, &first) != 0) {
        return {};
    }
    std::vector<Endpoint> result;
    for (const addrinfo* info = first; info != nullptr; info = info->ai_next) {
        Endpoint endpoint;
        std::memcpy(&endpoint.address, info->ai_addr, info->ai_addrlen);
        endpoint.size = info->ai_addrlen;
        result.push_back(endpoint);
    }
    ::freeaddrinfo(first);
    return result;
}

} // namespace

HostLookup::HostLookup(const Address& address, const Wakeup& wakeup)
    : shared(std::make_shared<Shared>())
{
    std::vector<Endpoint> numeric = resolve(address, AI_NUMERICHOST);
    if (!numeric.empty()) {
        shared->result = std::move(numeric);
        return;
    }
    try {
        std::thread([address, target = shared, &wakeup] {
            std::vector<Endpoint> found = resolve(address, 0);
            {
                const std::lock_guard lock(target->mutex);
                target->result = std::move(found);
            }
            wakeup.notify();
        }).detach();
    } catch (const std::system_error&) {
        // No thread is to be had at present, which is a failed attempt like any other.
        shared->result.emplace();
    }
}

std::optional<std::vector<Endpoint>> HostLookup::result() const
{
    const std::lock_guard lock(shared->mutex);
    return shared->result;
}

} // namespace kor::veltrano::api2::detail

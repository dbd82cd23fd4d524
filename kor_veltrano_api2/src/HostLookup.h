// HostLookup: turns a host's name into network addresses without holding up the socket's thread.
//
// The system's resolver can block for half a minute and cannot be interrupted, so it runs on a
// thread of its own, which is left to itself when nobody waits for its result any more. The
// socket's thread makes it, is woken when the result is there, and may drop it at any time.
#pragma once

#include "Address.h"
#include "Wakeup.h"

#include <memory>
#include <optional>
#include <vector>

#include <sys/socket.h>

namespace kor::veltrano::api2::detail {

struct Endpoint {
    sockaddr_storage address{};
    socklen_t size = 0;
};

class HostLookup
{
public:
    // The wakeup must live as long as the process: the resolver may answer after this object's end.
    HostLookup(const Address& address, const Wakeup& wakeup);

    // In the order in which they should be tried; empty where there is no such host. Nothing while
    // the lookup is going on.
    std::optional<std::vector<Endpoint>> result() const;

private:
    struct Shared;
    std::shared_ptr<Shared> shared;
};

} // namespace kor::veltrano::api2::detail

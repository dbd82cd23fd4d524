// SocketThread: what the library's own thread does: it connects, lets a Session talk, and tries
// again a second after an attempt or a connection has ended.
//
//   idle --request--> attempt --refused, ended--> pause --1 s--> attempt   (with auto-reconnect)
//                        ^                    \--> idle                    (without)
//                        '---- a new request, from any state
#pragma once

#include "Address.h"
#include "Hub.h"
#include "Link.h"
#include "Socket.h"
#include "Wakeup.h"

#include <vector>

namespace kor::veltrano::api2::detail {

class SocketThread
{
public:
    SocketThread(Link& jobs, Hub& receiver, const Wakeup& interruptions)
        : link(jobs), hub(receiver), wakeup(interruptions)
    {
    }

    // Returns when the link says that the thread must stop.
    void run();

private:
    // One attempt and, if it succeeds, the whole connection.
    void attempt(const Job& job);
    // Empty where there is no such host or the job is no longer wanted.
    std::vector<Endpoint> lookUp(const Address& address, const Job& job);
    bool waitForConnection(const Socket& socket, const Job& job);

    Link& link;
    Hub& hub;
    const Wakeup& wakeup;
};

} // namespace kor::veltrano::api2::detail

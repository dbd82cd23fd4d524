// Session: one TCP connection to the server, from the opening request to its end.
//
//   greeting --the server answers protocol 1--> up --loss, silence, nonsense--> ended
//       '-------- another protocol, no answer in 5 s, loss, nonsense ------------^
//
// Runs on the socket's thread only. Commands are sent and events are taken only while it is up.
#pragma once

#include "Hub.h"
#include "Link.h"
#include "Socket.h"
#include "Wakeup.h"

#include "rpc/LineReader.h"
#include "rpc/Message.h"

#include <QByteArray>

namespace kor::veltrano::api2::detail {

class Session
{
public:
    Session(Socket& connectedSocket, Link& jobs, Hub& receiver, const Wakeup& interruptions,
            const Job& ownJob);

    // Returns when the connection has ended or the job is no longer wanted.
    void run();

private:
    // Each gives false where the connection must end.
    bool step();
    bool receive();
    bool handleLine(const QByteArray& line);
    bool handleAnswer(const rpc::Message& answer);
    bool send();
    void collectCommands();
    // Also sends a ping that is due.
    bool keepsTime();

    Clock::time_point nextDeadline() const;

    Socket& socket;
    Link& link;
    Hub& hub;
    const Wakeup& wakeup;
    const Job job;
    rpc::LineReader reader;
    QByteArray unsent;
    bool isUp = false;
    int lastPing;
    Clock::time_point helloDeadline;
    Clock::time_point silenceDeadline;
    Clock::time_point nextPing;
};

} // namespace kor::veltrano::api2::detail

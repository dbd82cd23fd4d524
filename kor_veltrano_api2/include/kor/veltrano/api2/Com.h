// Com: the connection to the robot's RPC server, one per process.
//
// The socket is served by a thread of the library's own, which starts with connectToServer() and
// ends with shutdown(). That thread never calls a virtual operation: events of this class and of
// all devices are queued and delivered by processEvents(), on its caller's thread, in order of
// arrival. Of a device's state only the newest undelivered event is kept.
//
// All operations may be called on any thread. A Com may be created and destroyed at any time;
// while several exist, the last one that called connectToServer() owns the connection.
#pragma once

#include "kor/veltrano/api2/ComId.h"

namespace kor::veltrano::api2
{

class Com
{
public:
    Com();
    virtual ~Com();
    Com(const Com&) = delete;
    Com& operator=(const Com&) = delete;

    // An event that the library could not deal with; text is Latin-1 and valid during the call.
    virtual void errorEvent(const char* message);
    // The server has answered the opening request.
    virtual void connectedEvent();
    // A connection for which connectedEvent() came has ended.
    virtual void disconnectedEvent();
    // Chatter of the library at the given level; text is valid during the call.
    virtual void logEvent(const char* message, int level);

    // Sets the server's address as Latin-1 text "host:port", used from the next connection attempt
    // on. An empty text or a null pointer means 127.0.0.1:12080, a missing port 12080.
    void setAddress(const char* address);
    // With true, a lost or refused connection is tried again after a second, for as long as the
    // process runs. Initially false.
    void setAutoReconnectEnabled(bool enable);
    // Starts to connect. With isBlocking the call returns when the first attempt has succeeded or
    // failed, else at once. Nothing is reported here: see connectedEvent().
    void connectToServer(bool isBlocking);
    // The handle of this connection: never ComId::null(), whether or not the connection is up.
    ComId id() const;
    // Delivers the queued events of this connection and of all devices on the calling thread.
    void processEvents();

private:
    ComId comId;
};

} // namespace kor::veltrano::api2

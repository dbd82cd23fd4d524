// Com: the connection to the robot's RPC server, one per process.
//
// The socket is served by a thread of the library's own, which starts with connectToServer() and
// ends with shutdown(). That thread never calls a virtual operation: events of this class and of
// all devices are queued and delivered by processEvents(), on its caller's thread, in order of
// arrival. Of a device's state only the newest undelivered event is kept.
//
// All operations may be called on any thread. A Com may be created and destroyed at any time;
// while several exist, the last one that called connectToServer() owns the connection, and its
// destruction ends it.
//
// Objects may be created and destroyed inside handlers too. A destructor waits for a handler of its
// object that runs on another thread, but only when it has reached the class of this library: an
// object whose class overrides events is best destroyed on the thread that processes them.
#pragma once

#include "kor/veltrano/api2/ComId.h"

namespace kor::veltrano::api2 {

class Com
{
public:
    Com();
    virtual ~Com();
    Com(const Com&) = delete;
    Com& operator=(const Com&) = delete;

    // An event that the library could not deal with; text is Latin-1 and valid during the call.
    // Never fired over this connection.
    virtual void errorEvent(const char* message);
    // The server has answered the opening request.
    virtual void connectedEvent();
    // A connection for which connectedEvent() came has ended.
    virtual void disconnectedEvent();
    // Chatter of the library at the given level; text is valid during the call. Never fired over
    // this connection.
    virtual void logEvent(const char* message, int level);

    // Sets the server's address as Latin-1 text "host:port", used from the next connection attempt
    // on. An empty text or a null pointer means 127.0.0.1:12080, a missing port 12080. An IPv6
    // address stands in brackets where a port follows it. An attempt with a port that is no number
    // from 1 to 65535 fails like a refused one.
    void setAddress(const char* address);
    // With true, a lost or refused connection is tried again after a second, until shutdown().
    // Initially false.
    void setAutoReconnectEnabled(bool enable);
    // Starts to connect, and ends a connection that is up. With isBlocking the call returns when
    // the first attempt has succeeded or failed, else at once. Nothing is reported here: see
    // connectedEvent().
    void connectToServer(bool isBlocking);
    // The handle of this connection: never ComId::null(), whether or not the connection is up.
    ComId id() const;
    // Delivers the queued events of all connections and devices on the calling thread. Events that
    // arrive meanwhile are left to the next call. A call inside a handler, or while another thread
    // is delivering, returns at once.
    void processEvents();

private:
    ComId comId;
};

} // namespace kor::veltrano::api2

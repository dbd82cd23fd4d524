#include "http/Listener.h"

#include "http/FileReply.h"
#include "http/PortSockets.h"
#include "http/Reply.h"
#include "http/ThreadPool.h"
#include "http/handler.h"

#include <iostream>

namespace kor::veltrano::daemons {

namespace {

constexpr std::chrono::seconds requestTimeout(120);
// What is still at work after that costs at worst a hanging exit, which the service manager ends.
constexpr std::chrono::seconds openFilesGrace(5);
constexpr std::chrono::seconds drainGrace(5);
// The pool has nothing to do yet when the port is opened.
constexpr std::chrono::seconds openGrace(5);
// For a client to take the reply that is on its way to it.
constexpr std::chrono::seconds connectionsGrace(1);

// The port in fact: an address that names none gets whatever is free. 0 where it isn't known.
int openPort = 0;

int portOpenedSince(const std::set<int>& before)
{
    for (const int port : listeningPorts()) {
        if (before.count(port) == 0) {
            return port;
        }
    }
    return 0;
}

void openListener(const QString& address)
{
    const web::uri uri = web::uri_builder(web::uri(address.toStdString())).to_uri();
    web::http::experimental::listener::http_listener_config config;
    config.set_timeout(requestTimeout);
    config.set_backlog(0);
    listenerHandler = std::make_unique<handler>(uri.to_string(), config);
    const std::set<int> portsBefore = listeningPorts();
    {
        // The library takes connections a moment before it knows whose requests they bring, and
        // answers 404 until it does. So it opens on the one thread that could answer.
        OneThreadOfPool untilOpen(openGrace);
        untilOpen.run([] { listenerHandler->open().wait(); });
    }
    openPort = portOpenedSince(portsBefore);
    std::cout << "Listening for requests at: " << uri.to_string() << std::endl;
}

} // namespace

void startListener(const QString& address)
{
    initializeThreadPool();
    try {
        openListener(address);
        return;
    } catch (const web::http::http_exception& exception) {
        std::cout << exception.what() << std::endl;
    } catch (const web::uri_exception& exception) {
        std::cout << exception.what() << std::endl;
    } catch (...) {
        // Spelled so from the first release on; whoever searches logs for it finds it.
        std::cout << "Unkown error" << std::endl;
    }
    listenerHandler.reset();
}

void refuseRequests()
{
    if (listenerHandler) {
        listenerHandler->refuseRequests();
    }
}

void closeListener()
{
    if (!listenerHandler) {
        return;
    }
    // The library crashes when connections come or work while it closes its listener: first none
    // may come any more, then those that are there must end, and then it may close.
    silenceListeningSocket(openPort);
    drainThreadPool(drainGrace);
    endConnections(openPort, connectionsGrace);
    drainThreadPool(drainGrace);
    dropFailure(listenerHandler->close());
    openFiles.waitUntilNone(openFilesGrace);
    drainThreadPool(drainGrace);
}

} // namespace kor::veltrano::daemons

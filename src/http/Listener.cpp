#include "http/Listener.h"

#include "http/FileReply.h"
#include "http/ListenerSocket.h"
#include "http/Reply.h"
#include "http/handler.h"

#include <iostream>
#include <thread>

namespace kor::veltrano::daemons
{

namespace
{

constexpr std::chrono::seconds requestTimeout(120);
// Enough for an accept that has begun to end.
constexpr std::chrono::milliseconds acceptGrace(50);
// A file that still isn't closed then costs at worst a hanging exit, which the service manager
// ends.
constexpr std::chrono::seconds openFilesGrace(5);

void openListener(const QString& address)
{
    const web::uri uri = web::uri_builder(web::uri(address.toStdString())).to_uri();
    web::http::experimental::listener::http_listener_config config;
    config.set_timeout(requestTimeout);
    config.set_backlog(0);
    listenerHandler = std::make_unique<handler>(uri.to_string(), config);
    listenerHandler->open().wait();
    std::cout << "Listening for requests at: " << uri.to_string() << std::endl;
}

} // namespace

void startListener(const QString& address)
{
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
    // The library crashes when connections arrive while it closes its listener.
    if (silenceListeningSocket(listenerHandler->port())) {
        std::this_thread::sleep_for(acceptGrace);
    }
    dropFailure(listenerHandler->close());
    openFiles.waitUntilNone(openFilesGrace);
}

} // namespace kor::veltrano::daemons

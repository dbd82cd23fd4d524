// handler: the operations behind the HTTP port.
//
// Built by startListener() on the main thread, closed at shutdown and deleted by the process's
// static destruction. The operations run on the HTTP library's threads, several at once; each
// request works on its own copies.
#pragma once

#include "http/DataHandler.h"
#include "http/RequestGate.h"

#include <cpprest/http_listener.h>

#include <memory>
#include <string>

namespace kor::veltrano::daemons {

class handler
{
public:
    handler(const std::string& address,
            const web::http::experimental::listener::http_listener_config& config);
    virtual ~handler();
    handler(const handler&) = delete;
    handler& operator=(const handler&) = delete;

    pplx::task<void> open();
    pplx::task<void> close();

    // From now on every path is answered as an unknown one; returns when the requests inside have
    // ended. Main thread.
    void refuseRequests();

private:
    void handle_get(web::http::http_request request);
    void handle_put_post(web::http::http_request request);
    void handle_delete(web::http::http_request request);

    void replyToRead(const web::http::http_request& request, const QString& path,
                     const QMap<QString, QString>& parameters);
    void replyToWrite(const web::http::http_request& request, const QString& path,
                      const QMap<QString, QString>& parameters, const std::string& body);

    // First, so that it outlives the listener: an operation holds a pass to its last line.
    RequestGate gate;
    web::http::experimental::listener::http_listener listener;
    std::unique_ptr<DataHandler> dataHandler;
};

// Null until startListener() has built it, and null again where the port could not be opened.
extern std::unique_ptr<handler> listenerHandler;

} // namespace kor::veltrano::daemons

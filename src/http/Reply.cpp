#include "http/Reply.h"

#include <cpprest/http_listener.h>

namespace kor::veltrano::daemons {

namespace {

void sendText(const web::http::http_request& request, web::http::status_code status,
              const std::string& text, const std::string& contentType)
{
    web::http::http_response response(status);
    response.set_body(text, contentType);
    sendReply(request, response);
}

} // namespace

void sendReply(web::http::http_request request, const web::http::http_response& response)
{
    request.reply(response).then(&dropFailure);
}

void replyJson(const web::http::http_request& request, web::http::status_code status,
               const QByteArray& text)
{
    // The library's strings are UTF-8 here, so it adds no charset of its own.
    sendText(request, status, text.constData(), "application/json; charset=utf-8");
}

void replyText(const web::http::http_request& request, web::http::status_code status,
               const std::string& text)
{
    sendText(request, status, text, "text/plain; charset=utf-8");
}

void replyStatus(const web::http::http_request& request, web::http::status_code status)
{
    sendReply(request, web::http::http_response(status));
}

void replyUnreadable(const web::http::http_request& request)
{
    replyText(request, web::http::status_codes::InternalError, "INTERNAL ERROR ");
}

void dropFailure(const pplx::task<void>& task)
{
    try {
        task.get();
    } catch (...) { // NOLINT(bugprone-empty-catch): dropped on purpose
    }
}

} // namespace kor::veltrano::daemons

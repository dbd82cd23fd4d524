// How replies go out. Any thread; none of these throws for a client that is gone.
#pragma once

#include <QByteArray>

#include <cpprest/http_msg.h>

#include <string>

namespace kor::veltrano::daemons {

// Sends any response.
void sendReply(web::http::http_request request, const web::http::http_response& response);

// Sends a JSON text, which ends at its first NUL byte.
void replyJson(const web::http::http_request& request, web::http::status_code status,
               const QByteArray& text);

// Sends a plain text.
void replyText(const web::http::http_request& request, web::http::status_code status,
               const std::string& text);

// Sends a status alone, without a body or a content type.
void replyStatus(const web::http::http_request& request, web::http::status_code status);

// The reply to a file that can't be read; there is no 404 in this daemon.
void replyUnreadable(const web::http::http_request& request);

// Waits for a task that has ended and drops its failure: a reply that can't be delivered is
// nobody's concern, but a failure that nobody looks at would end the process.
void dropFailure(const pplx::task<void>& task);

} // namespace kor::veltrano::daemons

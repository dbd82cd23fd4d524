// bare-listener ADDRESS TEXT: the HTTP library without a daemon behind it.
//
// Answers every GET with the constant TEXT, and every PUT, once its body has been read, with an
// empty text; both as the daemon's replies look on the wire. Runs until it is killed.
#include <cpprest/http_listener.h>

#include <csignal>
#include <iostream>
#include <string>

#include <unistd.h>

using web::http::http_request;
using web::http::http_response;
using web::http::methods;
using web::http::status_codes;

namespace {

void reply(http_request request, const std::string& text)
{
    http_response response(status_codes::OK);
    response.set_body(text, "application/json; charset=utf-8");
    request.reply(response);
}

} // namespace

int main(int argc, char* argv[])
{
    if (argc != 3) {
        std::cerr << "usage: bare-listener ADDRESS TEXT" << std::endl;
        return 2;
    }
    const std::string text = argv[2];
    web::http::experimental::listener::http_listener listener(web::uri{std::string(argv[1])});
    listener.support(methods::GET, [text](const http_request& request) { reply(request, text); });
    listener.support(methods::PUT, [](const http_request& request) {
        http_request(request).extract_string(true).then(
            [request](const std::string&) { reply(request, ""); });
    });
    listener.open().wait();
    std::cout << "Listening for requests at: " << argv[1] << std::endl;
    pause();
    return 0;
}

// bare-listener ADDRESS text|scan|image FILE: the HTTP library without a daemon behind it.
//
// Answers every GET as the daemon's replies look on the wire, and at the cost that they can't go
// without: "text" with the file's bytes, "scan" with the JSON object in the file, which is rendered
// for each reply, "image" with the file's bytes through a cleared buffer of the largest image and a
// copy of it. Every PUT is answered with an empty text once its body has been read. Runs until it
// is killed.
#include <cpprest/containerstream.h>
#include <cpprest/http_listener.h>

#include <QtCore/QByteArray>
#include <QtCore/QFile>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>

#include <algorithm>
#include <functional>
#include <iostream>
#include <string>
#include <vector>

#include <unistd.h>

using web::http::http_request;
using web::http::http_response;
using web::http::methods;
using web::http::status_codes;

namespace {

using Reply = std::function<void(const http_request&)>;

constexpr std::size_t imageBufferBytes = 0xFFFFF;

void replyJson(const http_request& request, const std::string& text)
{
    http_response response(status_codes::OK);
    response.set_body(text, "application/json; charset=utf-8");
    http_request(request).reply(response);
}

Reply textReply(const QByteArray& content)
{
    return
        [text = content.toStdString()](const http_request& request) { replyJson(request, text); };
}

Reply scanReply(const QByteArray& content)
{
    return [scan = QJsonDocument::fromJson(content).object()](const http_request& request) {
        replyJson(request, QJsonDocument(scan).toJson().toStdString());
    };
}

Reply imageReply(const QByteArray& content)
{
    return [content](const http_request& request) {
        std::vector<unsigned char> buffer(imageBufferBytes);
        std::copy(content.begin(), content.end(), buffer.begin());
        http_response response(status_codes::OK);
        response.set_body(concurrency::streams::bytestream::open_istream(buffer),
                          utility::size64_t(content.size()), "image/jpeg");
        http_request(request).reply(response);
    };
}

Reply replyOf(const std::string& kind, const QByteArray& content)
{
    return kind == "scan" ? scanReply(content)
        : kind == "image" ? imageReply(content)
                          : textReply(content);
}

void replyToBody(const http_request& request)
{
    http_request(request).extract_string(true).then(
        [request](const std::string&) { replyJson(request, ""); });
}

} // namespace

int main(int argc, char* argv[])
{
    QFile file(argc == 4 ? argv[3] : "");
    if (!file.open(QIODevice::ReadOnly)) {
        std::cerr << "usage: bare-listener ADDRESS text|scan|image FILE" << std::endl;
        return 2;
    }
    web::http::experimental::listener::http_listener listener(web::uri{std::string(argv[1])});
    listener.support(methods::GET, replyOf(argv[2], file.readAll()));
    listener.support(methods::PUT, replyToBody);
    listener.open().wait();
    std::cout << "Listening for requests at: " << argv[1] << std::endl;
    pause();
    return 0;
}

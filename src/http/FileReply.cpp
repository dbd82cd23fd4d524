#include "http/FileReply.h"

#include "http/Reply.h"

#include <cpprest/filestream.h>

#include <filesystem>
#include <memory>

namespace kor::veltrano::daemons {

OpenFiles openFiles;

namespace {

using concurrency::streams::istream;

// A directory opens without an error and a FIFO without an end: neither may reach the library.
bool isRegularFile(const std::string& fileName)
{
    std::error_code error;
    return std::filesystem::is_regular_file(fileName, error);
}

// A file stream that is dropped unclosed waits in its destructor for a thread of the very pool that
// it stands on, and enough of them hang the daemon for ever. So every stream is closed by a task
// that keeps it alive, and keeps it counted, until the close has ended.
void closeStream(const istream& stream, const std::shared_ptr<OpenFiles::Entry>& entry)
{
    stream.close().then([stream, entry](const pplx::task<void>& closed) { dropFailure(closed); });
}

void sendStream(web::http::http_request request, const istream& stream,
                const std::string& contentType, const std::shared_ptr<OpenFiles::Entry>& entry)
{
    web::http::http_response response(web::http::status_codes::OK);
    response.set_body(stream, contentType);
    pplx::task<void> reply;
    try {
        reply = request.reply(response);
    } catch (...) {
        reply = pplx::task_from_exception<void>(std::current_exception());
    }
    reply.then([stream, entry](const pplx::task<void>& sent) {
        dropFailure(sent);
        closeStream(stream, entry);
    });
}

} // namespace

void replyFile(const web::http::http_request& request, const std::string& fileName,
               const std::string& contentType)
{
    if (!isRegularFile(fileName)) {
        replyUnreadable(request);
        return;
    }
    const auto entry = std::make_shared<OpenFiles::Entry>(openFiles);
    concurrency::streams::fstream::open_istream(fileName)
        .then([request, contentType, entry](const istream& stream) {
            sendStream(request, stream, contentType, entry);
        })
        .then([request](const pplx::task<void>& opened) {
            try {
                opened.get();
            } catch (...) {
                replyUnreadable(request);
            }
        });
}

} // namespace kor::veltrano::daemons

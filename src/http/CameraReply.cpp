#include "http/CameraReply.h"

#include "http/Reply.h"
#include "robot/MyCamera.h"

#include <cpprest/containerstream.h>

#include <vector>

namespace kor::veltrano::daemons {

namespace {

// The largest image that can be delivered, in bytes.
constexpr std::size_t bufferBytes = 0xFFFFF;

} // namespace

void replyCameraImage(const web::http::http_request& request)
{
    unsigned int sequence = 0;
    if (!MyCamera::acquire()->isNewImageAvailable(&sequence)) {
        replyText(request, web::http::status_codes::InternalError, "No camera connected");
        return;
    }
    std::vector<unsigned char> buffer(bufferBytes);
    unsigned char* bytes = buffer.data();
    unsigned int first = 0;
    unsigned int second = 0;
    unsigned int third = 0;
    MyCamera::acquire()->getImage(&bytes, unsigned(buffer.size()), &first, &second, &third);
    // A raw image has its width first: there is no way to deliver one.
    if (first != 0 || third == 0) {
        replyText(request, web::http::status_codes::InternalError, "No jpeg image available");
        return;
    }
    web::http::http_response response(web::http::status_codes::OK);
    response.set_body(concurrency::streams::bytestream::open_istream(std::move(buffer)), third,
                      "image/jpeg");
    sendReply(request, response);
}

} // namespace kor::veltrano::daemons

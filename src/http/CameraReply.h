// The camera's newest image as a reply.
#pragma once

#include <cpprest/http_msg.h>

namespace kor::veltrano::daemons {

// Keeps the camera bound and sends its newest image as JPEG, or status 500 with a text that says
// what is missing. An image is sent once: who asks again before the next one gets the 500. Under a
// pass of the gate; any thread.
void replyCameraImage(const web::http::http_request& request);

} // namespace kor::veltrano::daemons

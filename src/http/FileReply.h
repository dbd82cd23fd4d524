// Replies that are the content of a file.
#pragma once

#include "http/OpenFiles.h"

#include <cpprest/http_msg.h>

#include <string>

namespace kor::veltrano::daemons {

// Sends the file with status 200 and the content type, to its end and without a length. A file that
// can't be opened, or is no regular file, gives replyUnreadable(). Returns at once; any thread.
void replyFile(const web::http::http_request& request, const std::string& fileName,
               const std::string& contentType);

// The files that are being sent. Destroyed after the HTTP library's threads have ended.
extern OpenFiles openFiles;

} // namespace kor::veltrano::daemons

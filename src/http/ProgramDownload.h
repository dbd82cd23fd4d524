// Downloads of user programs.
#pragma once

#include <QString>

#include <cpprest/http_msg.h>

namespace kor::veltrano::daemons {

// Where downloads begin; a path that begins so is one.
constexpr const char* programDownloadPrefix = "/download/program/";

// Sends the program that the path names, percent-decoded, from the directory of the setting
// Lumview/programpath. The name isn't checked. Throws where the path's percent signs are invalid.
// Any thread.
void replyProgramDownload(const web::http::http_request& request, const QString& path);

} // namespace kor::veltrano::daemons

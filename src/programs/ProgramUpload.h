// The upload of a user program.
#pragma once

#include <QByteArray>

namespace kor::veltrano::daemons {

// The write of /data/uploadProgram: a JSON object of "name", "size" in bytes, and "data", the
// content in Base64, with or without a data URL's head. The file goes into the directory of the
// setting Lumview/programpath, under the name as it comes. result gets an object of the string
// "message" and the boolean "success". A failed upload leaves an earlier file of that name as it
// was. Always true. Any thread.
bool uploadProgram(const QByteArray& body, QByteArray& result);

} // namespace kor::veltrano::daemons

// The paths that can be written: a row is a path, the access that it needs and its target.
//
// The rows are walked in their order, on any of the HTTP threads. A row whose access is refused is
// passed over like one that doesn't match, so that the caller can't tell one from the other.
#pragma once

#include "access/Request.h"
#include "access/Role.h"

#include <QByteArray>

#include <optional>
#include <vector>

namespace kor::veltrano::daemons {

struct WriteRow {
    // Compared with the whole path and with case.
    const char* path;
    Access access;
    // Applies the body; may put the reply's text into result. False asks for a reply of status 400.
    bool (*target)(const Request& request, const QByteArray& body, QByteArray& result);
};

const std::vector<WriteRow>& writeRows();

// The outcome of the first row that matches and permits; nothing where none does.
std::optional<bool> applyWrite(const Request& request, const QByteArray& body, QByteArray& result);

} // namespace kor::veltrano::daemons

// The paths that can be read under /data: a row is a path, the access that it needs and its answer.
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

struct ReadRow {
    // Compared with case, with the whole path; one that ends in a slash with the path's beginning.
    const char* path;
    Access access;
    // Gives the JSON text of the reply.
    QByteArray (*answer)(const Request& request);
};

const std::vector<ReadRow>& readRows();

// The answer of the first row that matches and permits; nothing where none does.
std::optional<QByteArray> answerRead(const Request& request);

} // namespace kor::veltrano::daemons

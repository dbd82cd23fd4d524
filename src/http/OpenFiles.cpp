#include "http/OpenFiles.h"

namespace kor::veltrano::daemons {

OpenFiles::Entry::Entry(OpenFiles& openFiles) : files(openFiles)
{
    const std::lock_guard lock(files.mutex);
    ++files.count;
}

OpenFiles::Entry::~Entry()
{
    const std::lock_guard lock(files.mutex);
    --files.count;
    files.changed.notify_all();
}

bool OpenFiles::waitUntilNone(std::chrono::milliseconds timeout)
{
    std::unique_lock lock(mutex);
    return changed.wait_for(lock, timeout, [this] { return count == 0; });
}

} // namespace kor::veltrano::daemons

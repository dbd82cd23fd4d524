#include "Outbox.h"

#include <utility>

namespace kor::veltrano::api2::detail {

void Outbox::start()
{
    lines.clear();
    open = true;
}

bool Outbox::add(const QByteArray& line)
{
    const auto size = static_cast<std::size_t>(line.size());
    if (open && size > maxBytes - lines.size()) {
        open = false;
        lines.clear();
    }
    if (!open) {
        return false;
    }
    lines.append(line.constData(), size);
    return true;
}

std::string Outbox::take()
{
    return std::exchange(lines, std::string());
}

} // namespace kor::veltrano::api2::detail

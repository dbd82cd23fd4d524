#include "Outbox.h"

#include <utility>

namespace kor::veltrano::api2::detail
{

void Outbox::start()
{
    lines.clear();
    open = true;
}

bool Outbox::add(const QByteArray& line)
{
    if (open && line.size() > maxBytes - lines.size()) {
        open = false;
        lines.clear();
    }
    if (!open) {
        return false;
    }
    lines += line;
    return true;
}

QByteArray Outbox::take()
{
    return std::exchange(lines, QByteArray());
}

} // namespace kor::veltrano::api2::detail

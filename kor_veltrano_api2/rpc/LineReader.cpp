#include "LineReader.h"

namespace kor::veltrano::rpc {

void LineReader::append(const QByteArray& bytes)
{
    if (overlong) {
        return;
    }
    // Dropping the taken lines only here keeps taking many short lines linear.
    if (taken == buffer.size()) {
        // Also gives back the memory of a long line.
        buffer.clear();
    } else {
        buffer.remove(0, taken);
    }
    scanned -= taken;
    taken = 0;
    buffer += bytes;
}

std::optional<QByteArray> LineReader::takeLine()
{
    while (!overlong) {
        const int end = buffer.indexOf('\n', scanned);
        const int length = (end < 0 ? buffer.size() : end) - taken;
        if (length > maxLineBytes) {
            clear();
            overlong = true;
            break;
        }
        if (end < 0) {
            scanned = buffer.size();
            break;
        }
        const QByteArray line = buffer.mid(taken, length);
        taken = scanned = end + 1;
        if (!line.isEmpty()) {
            return line;
        }
    }
    return std::nullopt;
}

void LineReader::clear()
{
    buffer.clear();
    taken = 0;
    scanned = 0;
    overlong = false;
}

} // namespace kor::veltrano::rpc

#include "printLine.h"

#include "Problem.h"

#include <cerrno>
#include <cstring>
#include <unistd.h>

namespace kor::veltrano::lumview {

void printLine(const std::string& line)
{
    const std::string text = line + '\n';
    std::size_t written = 0;
    while (written < text.size()) {
        const ssize_t count = write(STDOUT_FILENO, text.data() + written, text.size() - written);
        if (count >= 0) {
            written += std::size_t(count);
        } else if (errno != EINTR) {
            throw Problem(std::string("cannot print: ") + std::strerror(errno));
        }
    }
}

} // namespace kor::veltrano::lumview

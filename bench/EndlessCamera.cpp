// A camera that never runs out of images, for measuring what an image costs the daemon.
//
// Linked in front of the robot library's own operations (with the linker's --wrap): the first image
// that has come from the robot is given out again and again, as if a new one had always arrived. A
// robot that sends as many would take the machine's time for itself.
#include <kor/veltrano/api2/Camera.h>

#include <algorithm>
#include <mutex>
#include <vector>

using kor::veltrano::api2::Camera;

namespace {

std::mutex imageMutex;
std::vector<unsigned char> image;

} // namespace

// The names that the linker gives a wrapped operation and what it stands in front of.
extern "C" {
bool __real__ZNK3kor8veltrano4api26Camera19isNewImageAvailableEPj(const Camera*, unsigned int*);
bool __real__ZN3kor8veltrano4api26Camera8getImageEPPhjPjS5_S5_(Camera*, unsigned char**,
                                                               unsigned int, unsigned int*,
                                                               unsigned int*, unsigned int*);

bool __wrap__ZNK3kor8veltrano4api26Camera19isNewImageAvailableEPj(const Camera* camera,
                                                                  unsigned int* sequence)
{
    const bool isThere =
        __real__ZNK3kor8veltrano4api26Camera19isNewImageAvailableEPj(camera, sequence);
    const std::lock_guard lock(imageMutex);
    return isThere || !image.empty();
}

bool __wrap__ZN3kor8veltrano4api26Camera8getImageEPPhjPjS5_S5_(Camera* camera, unsigned char** data,
                                                               unsigned int dataSize,
                                                               unsigned int* first,
                                                               unsigned int* second,
                                                               unsigned int* third)
{
    const bool isCopied = __real__ZN3kor8veltrano4api26Camera8getImageEPPhjPjS5_S5_(
        camera, data, dataSize, first, second, third);
    const std::lock_guard lock(imageMutex);
    if (isCopied) {
        image.assign(*data, *data + *third);
        return true;
    }
    std::copy(image.begin(), image.end(), *data);
    *third = unsigned(image.size());
    return true;
}
}

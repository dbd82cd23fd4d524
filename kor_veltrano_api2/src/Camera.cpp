#include "kor/veltrano/api2/Camera.h"

#include "CameraSlot.h"
#include "Library.h"

#include <algorithm>
#include <utility>

namespace kor::veltrano::api2 {

namespace {

struct Fetched {
    detail::CameraImage image;
    bool decodesJpeg;
};

void put(unsigned int* target, unsigned int value)
{
    if (target != nullptr) {
        *target = value;
    }
}

} // namespace

Camera::Camera(const ComId& id) : slot(std::make_unique<detail::CameraSlot>())
{
    detail::library().hub.addCamera(slot.get(), id.number());
    detail::library().roster.add(this);
}

Camera::~Camera()
{
    detail::library().roster.remove(this);
    detail::library().hub.removeCamera(slot.get());
}

void Camera::imageReceivedEvent(const unsigned char*, unsigned int, unsigned int, unsigned int,
                                unsigned int)
{
}

void Camera::capabilitiesChangedEvent(const CameraCapabilities&) { }

void Camera::settingsChangedEvent(unsigned int, unsigned int, const char*) { }

void Camera::calibrationChanged(const double*, unsigned int) { }

void Camera::setComId(const ComId& id)
{
    detail::library().hub.bindCamera(slot.get(), id.number());
}

ComId Camera::comId() const
{
    return ComId(detail::library().hub.withSlot(
        slot.get(), [](const detail::CameraSlot& own) { return own.com; }));
}

void Camera::setJPGDecodingEnabled(bool enable)
{
    detail::library().hub.withSlot(slot.get(),
                                   [enable](detail::CameraSlot& own) { own.decodesJpeg = enable; });
}

bool Camera::isNewImageAvailable(unsigned int* sequence) const
{
    const auto [isAvailable, count] =
        detail::library().hub.withSlot(slot.get(), [](const detail::CameraSlot& own) {
            return std::pair(own.image.has_value(), own.imagesReceived);
        });
    put(sequence, count);
    return isAvailable;
}

bool Camera::getImage(unsigned char** data, unsigned int dataSize, unsigned int* first,
                      unsigned int* second, unsigned int* third)
{
    const Fetched fetched = detail::library().hub.withSlot(slot.get(), [](detail::CameraSlot& own) {
        return Fetched{std::exchange(own.image, std::nullopt).value_or(detail::CameraImage()),
                       own.decodesJpeg};
    });
    const detail::CameraImage& image = fetched.image;
    const auto size = image.bytes ? static_cast<unsigned int>(image.bytes->size()) : 0;
    const bool isWanted = !image.isJpeg || !fetched.decodesJpeg;
    const bool fits = size > 0 && size <= dataSize && data != nullptr && *data != nullptr;
    const bool isCopied = isWanted && fits;
    if (isCopied) {
        std::copy(image.bytes->begin(), image.bytes->end(), *data);
    }
    put(first, image.isJpeg ? 0 : image.width);
    put(second, image.isJpeg ? 0 : image.height);
    put(third, image.isJpeg && isCopied ? size : 0);
    return isCopied;
}

} // namespace kor::veltrano::api2

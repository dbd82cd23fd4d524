// Camera: the robot's camera, which sends images only while an object is bound to a connection.
//
// The newest image waits in the object until it is fetched, or until the object is detached. All
// operations may be called on any thread.
#pragma once

#include "kor/veltrano/api2/ComId.h"

#include <memory>

namespace kor::veltrano::api2 {

class CameraCapabilities;

namespace detail {
class Delivery;
struct CameraSlot;
} // namespace detail

class Camera
{
public:
    // Bound to the given connection, or detached with ComId::null().
    explicit Camera(const ComId& id);
    virtual ~Camera();
    Camera(const Camera&) = delete;
    Camera& operator=(const Camera&) = delete;

    // An image of dataSize bytes has arrived: width and height in pixels and step in bytes a line
    // as the robot sent them. data is valid during the call.
    virtual void imageReceivedEvent(const unsigned char* data, unsigned int dataSize,
                                    unsigned int width, unsigned int height, unsigned int step);
    // Never sent over this connection.
    virtual void capabilitiesChangedEvent(const CameraCapabilities& capabilities);
    virtual void settingsChangedEvent(unsigned int width, unsigned int height, const char* format);
    virtual void calibrationChanged(const double* values, unsigned int count);

    // Binds the object to a connection and subscribes to its images; ComId::null() detaches it and
    // discards a waiting image.
    void setComId(const ComId& id);
    // The connection that the object is bound to, or ComId::null().
    ComId comId() const;

    // With false, a JPEG image is handed out as the bytes that arrived. Decoding is not offered by
    // this library: with true, which is the initial setting, a JPEG image gives 0, 0, 0.
    void setJPGDecodingEnabled(bool enable);
    // True from an image's arrival until getImage() has been called; sequence, which may be null,
    // gets the number of images that this object has received so far.
    bool isNewImageAvailable(unsigned int* sequence) const;
    // Copies the newest image into the dataSize bytes at *data. Gives 0, 0 and the number of bytes
    // copied for a JPEG image; width, height and 0 for a raw one, whose bytes are copied where they
    // fit; 0, 0, 0 where there is no image or where the JPEG is empty or larger than the buffer.
    // The image is gone then, whatever was given. True where bytes were copied.
    bool getImage(unsigned char** data, unsigned int dataSize, unsigned int* first,
                  unsigned int* second, unsigned int* third);

private:
    friend class detail::Delivery;

    // Guarded by the library's lock.
    std::unique_ptr<detail::CameraSlot> slot;
};

} // namespace kor::veltrano::api2

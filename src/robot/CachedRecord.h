// CachedRecord: a device whose event delivers a record of bytes that belongs to the robot.
//
// The newest record is kept as it came and handed out untouched; the daemon neither parses nor
// checks it. Device is a class of the robot library with infoChangedEvent(). The event runs on the
// main thread, readers on any; cacheMutex is held for a copy only.
#pragma once

#include <QByteArray>
#include <QMutex>
#include <QMutexLocker>

namespace kor::veltrano::daemons {

template<typename Device>
class CachedRecord : public Device
{
public:
    void infoChangedEvent(const char* data, int size) override
    {
        const QByteArray bytes(data, size);
        const QMutexLocker lock(&cacheMutex);
        cachedBytes = bytes;
    }

    // The newest record; empty before the first one.
    QByteArray data() const
    {
        const QMutexLocker lock(&cacheMutex);
        return cachedBytes;
    }

private:
    mutable QMutex cacheMutex;
    QByteArray cachedBytes;
};

} // namespace kor::veltrano::daemons

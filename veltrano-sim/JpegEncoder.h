// JpegEncoder: writes pictures as JPEG files in memory.
//
// It can be used for any number of pictures, one after the other, also after one that failed. The
// camera owns one.
#pragma once

#include <QByteArray>

#include <memory>

namespace kor::veltrano::sim {

struct Picture;

class JpegEncoder
{
public:
    JpegEncoder();
    JpegEncoder(const JpegEncoder&) = delete;
    JpegEncoder& operator=(const JpegEncoder&) = delete;
    ~JpegEncoder();

    // The file of a picture, with a quality from 1 to 100. Empty where the format cannot hold it,
    // as a picture of no size.
    QByteArray encode(const Picture& picture, int quality);

private:
    struct State;
    const std::unique_ptr<State> state;
};

} // namespace kor::veltrano::sim

// Reading JPEG files in memory. Free functions.
#pragma once

#include "Picture.h"

#include <QByteArray>

#include <optional>

namespace kor::veltrano::sim {

// The picture of a whole JPEG file; nothing where libjpeg finds anything wrong with it.
std::optional<Picture> decodeJpeg(const QByteArray& file);
// True where no part of two colours differs by more than so much.
bool isAbout(Color color, Color other, int tolerance = 12);

} // namespace kor::veltrano::sim

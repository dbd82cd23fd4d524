// Color: a colour as red, green and blue, from 0 to 255 each. A plain value, three bytes without
// gaps, as pictures hold it.
#pragma once

#include <QString>

#include <optional>

namespace kor::veltrano::sim {

struct Color {
    quint8 red = 0;
    quint8 green = 0;
    quint8 blue = 0;
};

// The colour of a text of the form #rrggbb; nothing where it has another form.
std::optional<Color> toColor(const QString& text);
// The colour with each part multiplied by a factor of 0 or above, as far as that goes.
Color scaled(Color color, double factor);
// The colour a share of the way, from 0 to 1, towards another.
Color mixed(Color color, Color other, double share);

} // namespace kor::veltrano::sim

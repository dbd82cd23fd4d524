// Picture: rows of pixels, the topmost first. A plain value.
#pragma once

#include "Color.h"

#include <vector>

namespace kor::veltrano::sim {

struct Picture {
    Picture(int columns, int rows)
        : width(columns),
          height(rows),
          pixels(static_cast<std::size_t>(columns) * static_cast<std::size_t>(rows))
    {
    }

    Color* row(int index) { return pixels.data() + static_cast<std::ptrdiff_t>(index) * width; }
    const Color* row(int index) const
    {
        return pixels.data() + static_cast<std::ptrdiff_t>(index) * width;
    }
    // Fills a column between two heights in rows; what is outside of the picture is left out.
    void fillColumn(int column, double top, double bottom, Color color);

    int width;
    int height;
    std::vector<Color> pixels;
};

} // namespace kor::veltrano::sim

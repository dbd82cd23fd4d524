#include "Picture.h"

#include <algorithm>
#include <cmath>

namespace kor::veltrano::sim {

void Picture::fillColumn(int column, double top, double bottom, Color color)
{
    // A pixel belongs to the strip that its middle is in, so that strips that meet leave no gap.
    // The little more keeps an edge through the middles straight, whatever the rounding of its
    // columns.
    const auto rowAt = [this](double place) {
        return static_cast<int>(
            std::ceil(std::clamp(place, 0.0, static_cast<double>(height)) - 0.500001));
    };
    const int end = rowAt(bottom);
    for (int index = rowAt(top); index < end; ++index) {
        row(index)[column] = color;
    }
}

} // namespace kor::veltrano::sim

// Mark: a coloured rectangle on a wall, to tell places apart by. A plain value.
#pragma once

#include "Color.h"
#include "Geometry.h"

namespace kor::veltrano::sim {

struct Mark {
    // Where it is on the wall, seen from above.
    Segment line;
    // Its lower and upper edge in m above the floor.
    double bottomM = 0;
    double topM = 0;
    Color color;

    // True where a point of the wall is between the mark's ends.
    bool covers(Point p) const;
};

} // namespace kor::veltrano::sim

#include "Mark.h"

namespace kor::veltrano::sim {

bool Mark::covers(Point p) const
{
    const Point along = line.to - line.from;
    const double share = dot(p - line.from, along);
    return share >= 0 && share <= dot(along, along);
}

} // namespace kor::veltrano::sim

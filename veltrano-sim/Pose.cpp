#include "Pose.h"

#include <cmath>

namespace kor::veltrano::sim {

double wrappedAngle(double angle)
{
    const double wrapped = std::remainder(angle, 2 * M_PI);
    return wrapped <= -M_PI ? wrapped + 2 * M_PI : wrapped;
}

} // namespace kor::veltrano::sim

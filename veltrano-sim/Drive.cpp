#include "Drive.h"

#include "Geometry.h"

#include <algorithm>
#include <cmath>

namespace kor::veltrano::sim {

namespace {

Point shortened(Point vector, double limit)
{
    const double size = length(vector);
    return size > limit ? vector * (limit / size) : vector;
}

} // namespace

bool Drive::reaches(const Velocity& velocity)
{
    return length({velocity.vx, velocity.vy}) <= maxSpeedMPerS
        && std::abs(velocity.omega) <= maxOmegaRadPerS;
}

void Drive::step(double dtS)
{
    const Point speed{current.vx, current.vy};
    const Point goal = shortened({wanted.vx, wanted.vy}, maxSpeedMPerS);
    const Point next = speed + shortened(goal - speed, accelerationMPerS2 * dtS);

    const double goalOmega = std::clamp(wanted.omega, -maxOmegaRadPerS, maxOmegaRadPerS);
    const double turn = accelerationRadPerS2 * dtS;
    const double omega = current.omega + std::clamp(goalOmega - current.omega, -turn, turn);
    current = {next.x, next.y, omega};
}

} // namespace kor::veltrano::sim

#include "Body.h"

#include "World.h"

#include <algorithm>
#include <cmath>

namespace kor::veltrano::sim {

namespace {

// A hull pushed out of a wall stands at its surface only up to rounding.
constexpr double roundingM = 1e-9;
constexpr double touchM = 1e-3;
// Steps this short cannot carry the hull's centre across a wall, however thin it is.
constexpr double longestStepM = Body::radius / 4;
constexpr double longestTurn = 0.1;
// A corner takes two pushes; what is not free after these is too narrow for the hull.
constexpr int mostPushes = 8;
constexpr int mostHalvings = 10;

} // namespace

bool Body::fits(Point p) const
{
    return !world.isSolid(p) && world.nearestSurface(p).distance >= radius - roundingM;
}

bool Body::touches(Point p) const
{
    return world.nearestSurface(p).distance <= radius + touchM;
}

Pose Body::moved(const Pose& from, const Velocity& velocity, double dtS) const
{
    const double way = std::hypot(velocity.vx, velocity.vy) * dtS;
    const double turn = velocity.omega * dtS;
    const int steps = static_cast<int>(
        std::ceil(std::max({1.0, way / longestStepM, std::abs(turn) / longestTurn})));
    const Point ahead = Point{velocity.vx, velocity.vy} * (dtS / steps);
    Point position{from.x, from.y};
    double phi = from.phi;
    for (int step = 0; step < steps; ++step) {
        // The heading of the step's middle keeps a curve's radius right.
        position = slid(position, position + turned(ahead, phi + turn / steps / 2));
        phi += turn / steps;
    }
    return {position.x, position.y, wrappedAngle(phi)};
}

Point Body::slid(Point from, Point to) const
{
    // Around a bend the way along the surface is a little longer than the step. A push much longer
    // than that could have crossed a wall.
    const double allowed = length(to - from) * 1.05 + roundingM;
    Point position = to;
    for (int push = 0; push < mostPushes; ++push) {
        const World::Surface surface = world.nearestSurface(position);
        if (surface.distance >= radius - roundingM) {
            return length(position - from) <= allowed ? position : stopped(from, to);
        }
        const double range = length(position - surface.point);
        if (surface.distance <= 0 || range <= 0) {
            return stopped(from, to);
        }
        position = surface.point + (position - surface.point) * (radius / range);
    }
    return stopped(from, to);
}

Point Body::stopped(Point from, Point to) const
{
    Point reached = from;
    double share = 0.5;
    for (int halving = 0; halving < mostHalvings; ++halving, share /= 2) {
        const Point further = reached + (to - from) * share;
        if (world.nearestSurface(further).distance >= radius - roundingM) {
            reached = further;
        }
    }
    return reached;
}

} // namespace kor::veltrano::sim

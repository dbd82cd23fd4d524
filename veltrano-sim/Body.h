// Body: the robot's round hull, which never overlaps a wall or an obstacle.
#pragma once

#include "Geometry.h"
#include "Pose.h"

namespace kor::veltrano::sim {

class World;

class Body
{
public:
    // The hull's radius in m.
    static constexpr double radius = 0.225;

    // The world must outlive the body.
    explicit Body(const World& surroundings) : world(surroundings) { }

    // True where the hull can stand at p without overlapping anything.
    bool fits(Point p) const;
    // True where the hull at p is within a millimetre of something.
    bool touches(Point p) const;
    // Where the robot is after dtS seconds of driving at a velocity. It slides along what is in its
    // way or stops; it never passes through, at any speed and for any time.
    Pose moved(const Pose& from, const Velocity& velocity, double dtS) const;

private:
    Point slid(Point from, Point to) const;
    Point stopped(Point from, Point to) const;

    const World& world;
};

} // namespace kor::veltrano::sim

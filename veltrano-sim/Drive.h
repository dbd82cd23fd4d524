// Drive: the omnidirectional drive, which follows a commanded velocity within its limits.
//
// A command holds until the next one. What is beyond the drive's speed is scaled down and keeps its
// direction.
#pragma once

#include "Pose.h"

namespace kor::veltrano::sim {

class Drive
{
public:
    static constexpr double maxSpeedMPerS = 3;
    static constexpr double maxOmegaRadPerS = 4;
    static constexpr double accelerationMPerS2 = 3;
    static constexpr double accelerationRadPerS2 = 12;

    // True where the drive can go at this velocity.
    static bool reaches(const Velocity& velocity);

    void command(const Velocity& velocity) { wanted = velocity; }
    // As commanded, also where the drive cannot reach it.
    const Velocity& commanded() const { return wanted; }
    const Velocity& velocity() const { return current; }
    // Makes the drive go at a velocity that it reaches and that comes from outside, as where a wall
    // stops it.
    void force(const Velocity& velocity) { current = velocity; }
    // Changes the velocity for dtS seconds towards the commanded one.
    void step(double dtS);

private:
    Velocity wanted;
    Velocity current;
};

} // namespace kor::veltrano::sim

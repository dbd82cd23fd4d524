// Worlds for tests.
#pragma once

#include "World.h"

namespace kor::veltrano::sim {

// Nothing at all; the robot starts at the origin.
inline World emptyWorld()
{
    return World();
}

// A square of walls around the origin, each halfM away from it.
inline World squareRoom(double halfM)
{
    World world;
    world.addWall({{-halfM, -halfM}, {halfM, -halfM}});
    world.addWall({{halfM, -halfM}, {halfM, halfM}});
    world.addWall({{halfM, halfM}, {-halfM, halfM}});
    world.addWall({{-halfM, halfM}, {-halfM, -halfM}});
    return world;
}

} // namespace kor::veltrano::sim

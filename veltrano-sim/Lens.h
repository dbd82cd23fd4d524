// Lens: how the camera, in the robot's middle and looking ahead, maps the world to its picture.
//
// Depths are in m along the direction of view, heights in m above the floor, rows and columns in
// pixels from the picture's upper left corner. The picture shows more floor than sky, and what is
// upright is upright in it.
#pragma once

#include "Geometry.h"

namespace kor::veltrano::sim {

struct Lens {
    static constexpr int width = 640;
    static constexpr int height = 480;
    // Half the picture's width is seen under arctan(320 / 400), about 39 degrees.
    static constexpr double focalPx = 400;
    static constexpr int horizonRow = 200;
    static constexpr double heightM = 0.5;

    // The row in which something of a height at a depth appears, with fractions.
    static double rowOf(double aboveFloorM, double depthM)
    {
        return horizonRow + focalPx * (heightM - aboveFloorM) / depthM;
    }
    // The depth of the floor in the middle of a row below the horizon.
    static double depthOfFloor(int row) { return focalPx * heightM / (row + 0.5 - horizonRow); }
    // The ray through the middle of a column for a heading in rad, 1 long along the view.
    static Point rayThrough(double phi, int column)
    {
        return turned({1, (width / 2.0 - 0.5 - column) / focalPx}, phi);
    }
};

} // namespace kor::veltrano::sim

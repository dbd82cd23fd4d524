// World: what stands around the robot. Walls are thin segments, obstacles are round or polygons.
//
// A world is filled once, by the reader of world files or by a test, and never changes afterwards.
#pragma once

#include "Geometry.h"
#include "Pose.h"

#include <QString>

#include <vector>

namespace kor::veltrano::sim {

class World
{
public:
    // Beyond this coordinate in m the arithmetic would lose the millimetres.
    static constexpr double farthestM = 10000;

    using Polygon = std::vector<Point>;

    // The point of a surface that is nearest to some other point, and how far away it is in m. The
    // distance is negative inside a round obstacle and infinite in an empty world.
    struct Surface {
        Point point;
        double distance = 0;
    };

    void setName(const QString& text) { title = text; }
    void setStart(const Pose& pose) { startPose = pose; }
    void addWall(const Segment& wall) { segments.push_back(wall); }
    void addCircle(const Circle& circle) { circles.push_back(circle); }
    void addPolygon(const Polygon& corners);

    const QString& name() const { return title; }
    const Pose& start() const { return startPose; }
    // Walls and the edges of polygons.
    const std::vector<Segment>& edges() const { return segments; }
    const std::vector<Circle>& roundObstacles() const { return circles; }

    Surface nearestSurface(Point p) const;
    // True inside a polygon or a round obstacle.
    bool isSolid(Point p) const;
    // The way in m from origin along the unit vector ray to the first surface; limit where there is
    // none nearer.
    double rayLength(Point origin, Point ray, double limit) const;

private:
    QString title;
    Pose startPose;
    std::vector<Segment> segments;
    std::vector<Circle> circles;
    std::vector<Polygon> polygons;
};

} // namespace kor::veltrano::sim

// World: what stands around the robot. Walls are thin segments, obstacles are round or polygons,
// and marks are painted on walls.
//
// A world is filled once, by the reader of world files or by a test, and never changes afterwards.
#pragma once

#include "Geometry.h"
#include "Mark.h"
#include "Pose.h"

#include <QString>

#include <optional>
#include <vector>

namespace kor::veltrano::sim {

class World
{
public:
    // Beyond this coordinate in m the arithmetic would lose the millimetres.
    static constexpr double farthestM = 10000;

    using Polygon = std::vector<Point>;

    // How high walls and obstacles are, in m. The camera looks over obstacles, all else is lower
    // than they are.
    static constexpr double wallHeightM = 1.2;
    static constexpr double obstacleHeightM = 0.4;

    struct Wall {
        Segment line;
        std::vector<Mark> marks;
    };

    // What a ray meets first, and how far away that is in m. wall is null at an obstacle.
    struct Hit {
        double way = 0;
        const Wall* wall = nullptr;
    };

    // The point of a surface that is nearest to some other point, and how far away it is in m. The
    // distance is negative inside a round obstacle and infinite in an empty world.
    struct Surface {
        Point point;
        double distance = 0;
    };

    void setName(const QString& text) { title = text; }
    void setStart(const Pose& pose) { startPose = pose; }
    void addWall(const Segment& line) { wallList.push_back({line, {}}); }
    // Paints a mark on the wall that both its ends are within 1 cm of. False where there is none.
    bool addMark(const Mark& mark);
    void addCircle(const Circle& circle) { circles.push_back(circle); }
    void addPolygon(const Polygon& corners);

    const QString& name() const { return title; }
    const Pose& start() const { return startPose; }
    const std::vector<Wall>& walls() const { return wallList; }
    const std::vector<Circle>& roundObstacles() const { return circles; }
    const std::vector<Polygon>& solidPolygons() const { return polygons; }

    Surface nearestSurface(Point p) const;
    // True inside a polygon or a round obstacle.
    bool isSolid(Point p) const;
    // What the ray from origin along a unit vector meets within a limit in m; nothing where that is
    // nothing.
    std::optional<Hit> firstHit(Point origin, Point ray, double limit) const;
    // The same as if there were no obstacles.
    std::optional<Hit> firstWall(Point origin, Point ray, double limit) const;
    // The way in m to the first hit; limit where there is none nearer.
    double rayLength(Point origin, Point ray, double limit) const;

private:
    QString title;
    Pose startPose;
    std::vector<Wall> wallList;
    std::vector<Segment> edges;
    std::vector<Circle> circles;
    std::vector<Polygon> polygons;
};

} // namespace kor::veltrano::sim

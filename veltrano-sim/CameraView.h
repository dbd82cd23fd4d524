// CameraView: draws what the robot's camera sees from a pose: floor and sky, walls with their
// marks, and obstacles that it looks over.
//
// The camera owns one. The same world and pose give the same picture.
#pragma once

#include "Geometry.h"
#include "Picture.h"
#include "Pose.h"
#include "World.h"

namespace kor::veltrano::sim {

class CameraView
{
public:
    // The world must outlive the view.
    explicit CameraView(const World& shown);

    // The picture is the view's own, and holds until the next one is drawn.
    const Picture& draw(const Pose& pose);

private:
    // An obstacle as a column of the picture meets it.
    struct Sight {
        Passage passage;
        Color color;
    };

    void drawSky();
    void drawFloor(const Pose& pose);
    void drawColumn(int column, Point origin, Point ray);
    void drawWall(int column, const World::Wall& wall, Point viewer, Point spot, double depth);
    void drawObstacle(int column, const Sight& obstacle, double depthPerWay);
    std::vector<Sight> obstaclesAlong(Point origin, Point ray, double limit) const;

    const World& world;
    Picture picture;
};

} // namespace kor::veltrano::sim

#include "CameraView.h"

#include "Lens.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace kor::veltrano::sim {

namespace {

constexpr double farthestM = 200;
constexpr double tileM = 0.5;
constexpr double skirtingM = 0.08;
constexpr double railM = 0.05;
constexpr double panelM = 1;
constexpr double jointM = 0.012;
constexpr double cornerM = 0.12;

constexpr Color zenith{150, 190, 225};
constexpr Color haze{226, 232, 236};
constexpr Color lightTile{176, 170, 160};
constexpr Color darkTile{128, 124, 120};
constexpr Color wallPaint{232, 222, 202};
constexpr std::array<Color, 4> obstaclePaints{Color{196, 120, 60}, Color{84, 124, 164},
                                              Color{122, 142, 84}, Color{150, 96, 140}};

// What is far away is paler.
Color throughAir(Color color, double depth)
{
    return mixed(color, haze, depth / (depth + 25));
}

// The light comes from one side, so that two walls of a corner differ.
double brightness(Point normal)
{
    return 0.82 + 0.18 * dot(normal, {0.35, 0.94});
}

// The unit vector upright on a segment, towards the side of a point.
Point normalTowards(const Segment& segment, Point viewer)
{
    const Point along = segment.to - segment.from;
    const Point upright = Point{along.y, -along.x} * (1 / length(along));
    return upright * (dot(upright, viewer - segment.from) < 0 ? -1 : 1);
}

// How a wall's paint changes along it: joints between panels, and shade in its corners.
double texture(const Segment& wall, Point spot)
{
    const double fromStart = length(spot - wall.from);
    const double toEnd = length(wall.to - spot);
    const double inPanel = std::fmod(fromStart, panelM);
    const double joint = inPanel < jointM && fromStart > panelM / 2 ? 0.8 : 1;
    const double nearestEnd = std::min({fromStart, toEnd, cornerM}) / cornerM;
    return joint * (0.86 + 0.14 * nearestEnd);
}

// Where a coordinate is on the chequered floor; worlds end long before the number would be below 0.
unsigned tileAt(double coordinate)
{
    return static_cast<unsigned>(coordinate / tileM + 100000);
}

} // namespace

CameraView::CameraView(const World& shown) : world(shown), picture(Lens::width, Lens::height) { }

const Picture& CameraView::draw(const Pose& pose)
{
    drawSky();
    drawFloor(pose);
    for (int column = 0; column < Lens::width; ++column) {
        drawColumn(column, {pose.x, pose.y}, Lens::rayThrough(pose.phi, column));
    }
    return picture;
}

void CameraView::drawSky()
{
    for (int row = 0; row < Lens::horizonRow; ++row) {
        const Color color = mixed(zenith, haze, static_cast<double>(row) / Lens::horizonRow);
        std::fill_n(picture.row(row), Lens::width, color);
    }
}

void CameraView::drawFloor(const Pose& pose)
{
    const Point first = Lens::rayThrough(pose.phi, 0);
    const Point perColumn = Lens::rayThrough(pose.phi, 1) - first;
    for (int row = Lens::horizonRow; row < Lens::height; ++row) {
        const double depth = std::min(Lens::depthOfFloor(row), farthestM);
        const std::array<Color, 2> tiles{throughAir(lightTile, depth), throughAir(darkTile, depth)};
        Point spot = Point{pose.x, pose.y} + first * depth;
        const Point step = perColumn * depth;
        Color* const pixels = picture.row(row);
        for (int column = 0; column < Lens::width; ++column) {
            pixels[column] = tiles[(tileAt(spot.x) + tileAt(spot.y)) % 2];
            spot = spot + step;
        }
    }
}

void CameraView::drawColumn(int column, Point origin, Point ray)
{
    const double depthPerWay = 1 / length(ray);
    const Point unit = ray * depthPerWay;
    const std::optional<World::Hit> wall = world.firstWall(origin, unit, farthestM);
    if (wall) {
        const double depth = wall->way * depthPerWay;
        drawWall(column, *wall->wall, origin, origin + unit * wall->way, depth);
    }
    for (const Sight& obstacle : obstaclesAlong(origin, unit, wall ? wall->way : farthestM)) {
        drawObstacle(column, obstacle, depthPerWay);
    }
}

void CameraView::drawWall(int column, const World::Wall& wall, Point viewer, Point spot,
                          double depth)
{
    const double light = brightness(normalTowards(wall.line, viewer));
    const auto paint = [this, column, depth](double bottomM, double topM, Color color) {
        picture.fillColumn(column, Lens::rowOf(topM, depth), Lens::rowOf(bottomM, depth),
                           throughAir(color, depth));
    };
    const Color color = scaled(wallPaint, light * texture(wall.line, spot));
    paint(0, skirtingM, scaled(color, 0.6));
    paint(skirtingM, World::wallHeightM - railM, color);
    paint(World::wallHeightM - railM, World::wallHeightM, scaled(color, 0.75));
    for (const Mark& mark : wall.marks) {
        if (mark.covers(spot)) {
            // Marks are there to be recognised, so they are hardly shaded.
            paint(mark.bottomM, mark.topM, scaled(mark.color, 0.8 + 0.2 * light));
        }
    }
}

void CameraView::drawObstacle(int column, const Sight& obstacle, double depthPerWay)
{
    const double front = obstacle.passage.enter * depthPerWay;
    const double back = obstacle.passage.leave * depthPerWay;
    const double edge = Lens::rowOf(World::obstacleHeightM, front);
    const Color face = scaled(obstacle.color, brightness(obstacle.passage.normal));
    picture.fillColumn(column, Lens::rowOf(World::obstacleHeightM, back), edge,
                       throughAir(scaled(obstacle.color, 1.2), front));
    picture.fillColumn(column, edge, Lens::rowOf(0, front), throughAir(face, front));
}

std::vector<CameraView::Sight> CameraView::obstaclesAlong(Point origin, Point ray,
                                                          double limit) const
{
    std::vector<Sight> found;
    std::size_t paint = 0;
    const auto meet = [&found, &paint, limit](Passage passage) {
        if (passage.enter < limit) {
            passage.leave = std::min(passage.leave, limit);
            found.push_back({passage, obstaclePaints[paint % obstaclePaints.size()]});
        }
    };
    for (const Circle& circle : world.roundObstacles()) {
        const std::optional<Passage> passage = rayThroughCircle(origin, ray, circle);
        if (passage) {
            meet(*passage);
        }
        ++paint;
    }
    for (const World::Polygon& polygon : world.solidPolygons()) {
        for (const Passage& passage : rayThroughPolygon(origin, ray, polygon)) {
            meet(passage);
        }
        ++paint;
    }
    // The nearer ones are drawn over those behind them.
    std::sort(found.begin(), found.end(),
              [](const Sight& a, const Sight& b) { return a.passage.enter > b.passage.enter; });
    return found;
}

} // namespace kor::veltrano::sim

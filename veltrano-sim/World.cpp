#include "World.h"

#include <algorithm>
#include <limits>

namespace kor::veltrano::sim {

namespace {

constexpr double markToWallM = 0.01;

// Counts the edges that a line from p to the right crosses.
bool isInside(const World::Polygon& corners, Point p)
{
    bool inside = false;
    Point previous = corners.back();
    for (const Point& corner : corners) {
        const bool crosses = (corner.y > p.y) != (previous.y > p.y);
        if (crosses) {
            const double share = (p.y - corner.y) / (previous.y - corner.y);
            if (p.x < corner.x + share * (previous.x - corner.x)) {
                inside = !inside;
            }
        }
        previous = corner;
    }
    return inside;
}

} // namespace

bool World::addMark(const Mark& mark)
{
    for (Wall& wall : wallList) {
        Mark painted = mark;
        painted.line = {nearestOn(wall.line, mark.line.from), nearestOn(wall.line, mark.line.to)};
        if (length(painted.line.from - mark.line.from) <= markToWallM
            && length(painted.line.to - mark.line.to) <= markToWallM) {
            wall.marks.push_back(painted);
            return true;
        }
    }
    return false;
}

void World::addPolygon(const Polygon& corners)
{
    polygons.push_back(corners);
    Point previous = corners.back();
    for (const Point& corner : corners) {
        edges.push_back({previous, corner});
        previous = corner;
    }
}

World::Surface World::nearestSurface(Point p) const
{
    Surface nearest{p, std::numeric_limits<double>::infinity()};
    const auto approach = [&nearest, p](const Segment& segment) {
        const Point candidate = nearestOn(segment, p);
        const double distance = length(candidate - p);
        if (distance < nearest.distance) {
            nearest = {candidate, distance};
        }
    };
    for (const Wall& wall : wallList) {
        approach(wall.line);
    }
    std::for_each(edges.begin(), edges.end(), approach);
    for (const Circle& circle : circles) {
        const Point offset = p - circle.center;
        const double range = length(offset);
        const double distance = range - circle.radius;
        if (distance < nearest.distance && range > 0) {
            nearest = {circle.center + offset * (circle.radius / range), distance};
        }
    }
    return nearest;
}

bool World::isSolid(Point p) const
{
    const auto isInsideCircle = [p](const Circle& circle) {
        return length(p - circle.center) < circle.radius;
    };
    const auto isInsidePolygon = [p](const Polygon& corners) { return isInside(corners, p); };
    return std::any_of(circles.begin(), circles.end(), isInsideCircle)
        || std::any_of(polygons.begin(), polygons.end(), isInsidePolygon);
}

std::optional<World::Hit> World::firstWall(Point origin, Point ray, double limit) const
{
    Hit nearest{limit, nullptr};
    for (const Wall& wall : wallList) {
        const double way = rayToSegment(origin, ray, wall.line).value_or(limit);
        if (way < nearest.way) {
            nearest = {way, &wall};
        }
    }
    return nearest.wall ? std::optional(nearest) : std::nullopt;
}

std::optional<World::Hit> World::firstHit(Point origin, Point ray, double limit) const
{
    const std::optional<Hit> wall = firstWall(origin, ray, limit);
    const double wallWay = wall ? wall->way : limit;
    double nearest = wallWay;
    for (const Segment& edge : edges) {
        nearest = std::min(nearest, rayToSegment(origin, ray, edge).value_or(limit));
    }
    for (const Circle& circle : circles) {
        nearest = std::min(nearest, rayToCircle(origin, ray, circle).value_or(limit));
    }
    return nearest < wallWay ? Hit{nearest, nullptr} : wall;
}

double World::rayLength(Point origin, Point ray, double limit) const
{
    const std::optional<Hit> hit = firstHit(origin, ray, limit);
    return hit ? hit->way : limit;
}

} // namespace kor::veltrano::sim

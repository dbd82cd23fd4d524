#include "World.h"

#include <algorithm>
#include <limits>

namespace kor::veltrano::sim {

namespace {

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

void World::addPolygon(const Polygon& corners)
{
    polygons.push_back(corners);
    Point previous = corners.back();
    for (const Point& corner : corners) {
        segments.push_back({previous, corner});
        previous = corner;
    }
}

World::Surface World::nearestSurface(Point p) const
{
    Surface nearest{p, std::numeric_limits<double>::infinity()};
    for (const Segment& segment : segments) {
        const Point candidate = nearestOn(segment, p);
        const double distance = length(candidate - p);
        if (distance < nearest.distance) {
            nearest = {candidate, distance};
        }
    }
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

double World::rayLength(Point origin, Point ray, double limit) const
{
    double nearest = limit;
    for (const Segment& segment : segments) {
        nearest = std::min(nearest, rayToSegment(origin, ray, segment).value_or(limit));
    }
    for (const Circle& circle : circles) {
        nearest = std::min(nearest, rayToCircle(origin, ray, circle).value_or(limit));
    }
    return nearest;
}

} // namespace kor::veltrano::sim

#include "Geometry.h"

#include <algorithm>
#include <cmath>

namespace kor::veltrano::sim {

double dot(Point a, Point b)
{
    return a.x * b.x + a.y * b.y;
}

double cross(Point a, Point b)
{
    return a.x * b.y - a.y * b.x;
}

double length(Point vector)
{
    return std::hypot(vector.x, vector.y);
}

Point direction(double angle)
{
    return {std::cos(angle), std::sin(angle)};
}

Point turned(Point vector, double angle)
{
    const Point axis = direction(angle);
    return {axis.x * vector.x - axis.y * vector.y, axis.y * vector.x + axis.x * vector.y};
}

Point nearestOn(const Segment& segment, Point p)
{
    const Point along = segment.to - segment.from;
    const double squared = dot(along, along);
    if (squared <= 0) {
        return segment.from;
    }
    const double share = std::clamp(dot(p - segment.from, along) / squared, 0.0, 1.0);
    return segment.from + along * share;
}

std::optional<double> rayToSegment(Point origin, Point ray, const Segment& segment)
{
    const Point along = segment.to - segment.from;
    const double determinant = cross(ray, along);
    // A ray along the wall's own line meets its end, which the neighbouring walls show as well.
    if (std::abs(determinant) < 1e-12) {
        return std::nullopt;
    }
    const Point offset = segment.from - origin;
    const double way = cross(offset, along) / determinant;
    const double share = cross(offset, ray) / determinant;
    if (way < 0 || share < 0 || share > 1) {
        return std::nullopt;
    }
    return way;
}

std::optional<double> rayToCircle(Point origin, Point ray, const Circle& circle)
{
    const std::optional<Passage> passage = rayThroughCircle(origin, ray, circle);
    return passage ? std::optional(passage->enter) : std::nullopt;
}

std::optional<Passage> rayThroughCircle(Point origin, Point ray, const Circle& circle)
{
    const Point offset = circle.center - origin;
    const double ahead = dot(offset, ray);
    const double aside = cross(ray, offset);
    const double squared = circle.radius * circle.radius - aside * aside;
    if (ahead < 0 || squared < 0) {
        return std::nullopt;
    }
    const double half = std::sqrt(squared);
    const double enter = std::max(0.0, ahead - half);
    return Passage{enter, ahead + half, (ray * enter - offset) * (1 / circle.radius)};
}

std::vector<Passage> rayThroughPolygon(Point origin, Point ray, const std::vector<Point>& corners)
{
    struct Crossing {
        double way;
        Point normal;
    };
    std::vector<Crossing> crossings;
    Point previous = corners.back() - origin;
    for (const Point& corner : corners) {
        const Point next = corner - origin;
        // A corner on the ray belongs to one side, so that a ray crosses an even number of edges.
        if ((cross(ray, previous) < 0) != (cross(ray, next) < 0)) {
            const Point along = next - previous;
            const double way = cross(previous, along) / cross(ray, along);
            const Point upright = Point{along.y, -along.x} * (1 / length(along));
            if (way > 0) {
                crossings.push_back({way, upright * (dot(upright, ray) > 0 ? -1 : 1)});
            }
        }
        previous = next;
    }
    std::sort(crossings.begin(), crossings.end(),
              [](const Crossing& a, const Crossing& b) { return a.way < b.way; });
    std::vector<Passage> passages;
    for (std::size_t index = 0; index + 1 < crossings.size(); index += 2) {
        passages.push_back(
            {crossings[index].way, crossings[index + 1].way, crossings[index].normal});
    }
    return passages;
}

} // namespace kor::veltrano::sim

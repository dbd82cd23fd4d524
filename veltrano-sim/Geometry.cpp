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
    const Point offset = circle.center - origin;
    const double ahead = dot(offset, ray);
    const double aside = cross(ray, offset);
    const double half = circle.radius * circle.radius - aside * aside;
    if (ahead < 0 || half < 0) {
        return std::nullopt;
    }
    return std::max(0.0, ahead - std::sqrt(half));
}

} // namespace kor::veltrano::sim

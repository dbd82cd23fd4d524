// The plane geometry of worlds: points, segments and circles, in metres. Free functions on values.
#pragma once

#include <optional>
#include <vector>

namespace kor::veltrano::sim {

struct Point {
    double x = 0;
    double y = 0;

    friend Point operator+(Point a, Point b) { return {a.x + b.x, a.y + b.y}; }
    friend Point operator-(Point a, Point b) { return {a.x - b.x, a.y - b.y}; }
    friend Point operator*(Point a, double factor) { return {a.x * factor, a.y * factor}; }
};

struct Segment {
    Point from;
    Point to;
};

struct Circle {
    Point center;
    double radius = 0;
};

// The part of a ray that is inside of something: the ways in m to where it enters and leaves, and
// the unit vector that stands upright on the surface where it enters, towards the ray's origin.
struct Passage {
    double enter = 0;
    double leave = 0;
    Point normal;
};

double dot(Point a, Point b);
// The z component of the cross product: positive where b points to the left of a.
double cross(Point a, Point b);
double length(Point vector);
// The unit vector at an angle in rad.
Point direction(double angle);
// The vector turned to the left by an angle in rad.
Point turned(Point vector, double angle);

// The point of the segment that is nearest to p.
Point nearestOn(const Segment& segment, Point p);
// The way from origin along the unit vector ray to the segment; nothing where it misses.
std::optional<double> rayToSegment(Point origin, Point ray, const Segment& segment);
// The way from origin, outside of the circle, along the unit vector ray to the circle.
std::optional<double> rayToCircle(Point origin, Point ray, const Circle& circle);
// The passage from origin, outside of the circle, along the unit vector ray.
std::optional<Passage> rayThroughCircle(Point origin, Point ray, const Circle& circle);
// The passages from origin, outside of the polygon, along the unit vector ray, the nearest first.
std::vector<Passage> rayThroughPolygon(Point origin, Point ray, const std::vector<Point>& corners);

} // namespace kor::veltrano::sim

#include "WorldReader.h"

#include "Body.h"
#include "JsonShape.h"

#include <cmath>

namespace kor::veltrano::sim {

namespace {

constexpr double shortestM = 1e-6;
constexpr int mostThings = 10000;
// Where a mark is painted that says nothing of its height.
constexpr double markBottomM = 0.35;
constexpr double markTopM = 0.85;
const QLatin1String fromKey("from");
const QLatin1String toKey("to");

QString memberOf(const QString& path, const QString& name)
{
    return path.isEmpty() ? name : path + QLatin1Char('.') + name;
}

QString entryOf(const QString& path, int index)
{
    return QStringLiteral("%1[%2]").arg(path, QString::number(index));
}

} // namespace

World WorldReader::read(const QJsonObject& given)
{
    const QJsonObject members =
        object(given, {},
               {QStringLiteral("name"), QStringLiteral("start"), QStringLiteral("walls"),
                QStringLiteral("obstacles"), QStringLiteral("marks")});
    World world;
    const QJsonValue name = members.value(QStringLiteral("name"));
    if (!name.isString()) {
        fail(QStringLiteral("name"), QStringLiteral("must be a text"));
    }
    world.setName(name.toString());
    world.setStart(pose(members.value(QStringLiteral("start")), QStringLiteral("start")));
    readWalls(world, members);
    readObstacles(world, members);
    readMarks(world, members);
    checkStart(world);
    return world;
}

void WorldReader::readWalls(World& world, const QJsonObject& members)
{
    const QString name = QStringLiteral("walls");
    const QJsonArray walls = list(members.value(name), name);
    for (int index = 0; index < walls.size(); ++index) {
        const QString path = entryOf(name, index);
        world.addWall(segment(object(walls.at(index), path, {fromKey, toKey}), path));
    }
}

void WorldReader::readObstacles(World& world, const QJsonObject& members)
{
    const QString name = QStringLiteral("obstacles");
    // A world of walls alone need not say that it has no obstacles.
    const QJsonArray obstacles =
        members.contains(name) ? list(members.value(name), name) : QJsonArray();
    for (int index = 0; index < obstacles.size(); ++index) {
        readObstacle(world, obstacles.at(index), entryOf(name, index));
    }
}

void WorldReader::readObstacle(World& world, const QJsonValue& value, const QString& path)
{
    const QString circle = QStringLiteral("circle");
    const QString polygon = QStringLiteral("polygon");
    const QJsonObject obstacle = object(value, path, {circle, polygon});
    if (obstacle.size() != 1) {
        fail(path, QStringLiteral("must have either circle or polygon"));
    } else if (obstacle.contains(circle)) {
        readCircle(world, obstacle.value(circle), memberOf(path, circle));
    } else {
        readPolygon(world, obstacle.value(polygon), memberOf(path, polygon));
    }
}

void WorldReader::readCircle(World& world, const QJsonValue& value, const QString& path)
{
    const QString center = QStringLiteral("center");
    const QString radius = QStringLiteral("radius");
    const QJsonObject circle = object(value, path, {center, radius});
    const double size = number(circle.value(radius), memberOf(path, radius));
    if (size < shortestM) {
        fail(memberOf(path, radius), QStringLiteral("must be above 0"));
    }
    world.addCircle({point(circle.value(center), memberOf(path, center)), size});
}

void WorldReader::readPolygon(World& world, const QJsonValue& value, const QString& path)
{
    const QJsonArray given = list(value, path);
    if (given.size() < 3) {
        fail(path, QStringLiteral("must have at least 3 corners"));
        return;
    }
    World::Polygon corners;
    for (int index = 0; index < given.size(); ++index) {
        corners.push_back(point(given.at(index), entryOf(path, index)));
    }
    world.addPolygon(corners);
}

void WorldReader::readMarks(World& world, const QJsonObject& members)
{
    const QString name = QStringLiteral("marks");
    const QJsonArray marks =
        members.contains(name) ? list(members.value(name), name) : QJsonArray();
    for (int index = 0; index < marks.size(); ++index) {
        readMark(world, marks.at(index), entryOf(name, index));
    }
}

void WorldReader::readMark(World& world, const QJsonValue& value, const QString& path)
{
    const QString colorKey = QStringLiteral("color");
    const QString heightKey = QStringLiteral("height");
    const QJsonObject members = object(value, path, {fromKey, toKey, colorKey, heightKey});
    Mark mark{segment(members, path), markBottomM, markTopM,
              color(members.value(colorKey), memberOf(path, colorKey))};
    if (members.contains(heightKey)) {
        const auto height = toNumbers(members.value(heightKey), 2).value_or(std::vector{0.0, 0.0});
        mark.bottomM = height[0];
        mark.topM = height[1];
    }
    if (mark.bottomM < 0 || mark.topM <= mark.bottomM || mark.topM > World::wallHeightM) {
        fail(memberOf(path, heightKey),
             QStringLiteral("must be an array of two rising numbers from 0 to %1, in m")
                 .arg(World::wallHeightM));
    }
    if (!world.addMark(mark)) {
        fail(path, QStringLiteral("must lie on one of the walls"));
    }
}

void WorldReader::checkStart(const World& world)
{
    if (!Body(world).fits({world.start().x, world.start().y})) {
        fail(QStringLiteral("start"),
             QStringLiteral("is inside of a wall or an obstacle; the robot needs %1 m around it")
                 .arg(Body::radius));
    }
}

double WorldReader::number(const QJsonValue& value, const QString& path)
{
    const std::optional<double> result = toNumber(value);
    if (!result) {
        fail(path, QStringLiteral("must be a number"));
    } else if (std::abs(*result) > World::farthestM) {
        fail(path, QStringLiteral("must be within -10000 and 10000"));
    }
    return result.value_or(0);
}

Color WorldReader::color(const QJsonValue& value, const QString& path)
{
    const std::optional<Color> result = toColor(value.toString());
    if (!result) {
        fail(path, QStringLiteral("must be a colour of the form #rrggbb"));
    }
    return result.value_or(Color{});
}

Segment WorldReader::segment(const QJsonObject& members, const QString& path)
{
    const Segment result{point(members.value(fromKey), memberOf(path, fromKey)),
                         point(members.value(toKey), memberOf(path, toKey))};
    if (length(result.to - result.from) < shortestM) {
        fail(path, QStringLiteral("must be longer than nothing"));
    }
    return result;
}

Point WorldReader::point(const QJsonValue& value, const QString& path)
{
    const QJsonArray numbers = value.toArray();
    if (numbers.size() != 2) {
        fail(path, QStringLiteral("must be an array of two numbers, x and y in m"));
        return {};
    }
    return {number(numbers.at(0), entryOf(path, 0)), number(numbers.at(1), entryOf(path, 1))};
}

Pose WorldReader::pose(const QJsonValue& value, const QString& path)
{
    const QString x = QStringLiteral("x");
    const QString y = QStringLiteral("y");
    const QString phi = QStringLiteral("phi");
    const QJsonObject members = object(value, path, {x, y, phi});
    return {number(members.value(x), memberOf(path, x)),
            number(members.value(y), memberOf(path, y)),
            wrappedAngle(number(members.value(phi), memberOf(path, phi)))};
}

QJsonArray WorldReader::list(const QJsonValue& value, const QString& path)
{
    if (!value.isArray()) {
        fail(path, QStringLiteral("must be an array"));
    } else if (value.toArray().size() > mostThings) {
        fail(path, QStringLiteral("must have at most %1 entries").arg(mostThings));
        return {};
    }
    return value.toArray();
}

QJsonObject WorldReader::object(const QJsonValue& value, const QString& path,
                                const QStringList& known)
{
    QJsonObject members = value.toObject();
    if (!value.isObject()) {
        fail(path, QStringLiteral("must be an object"));
    }
    for (auto member = members.constBegin(); member != members.constEnd(); ++member) {
        if (!known.contains(member.key())) {
            fail(memberOf(path, member.key()),
                 QStringLiteral("is unknown; known are %1").arg(known.join(QStringLiteral(", "))));
        }
    }
    return members;
}

void WorldReader::fail(const QString& path, const QString& problem)
{
    if (firstError.isEmpty()) {
        firstError = QStringLiteral("%1 %2").arg(path, problem);
    }
}

} // namespace kor::veltrano::sim

// WorldReader: builds a world from the JSON object of a world file.
//
// It goes on after a bad member but remembers the first one only; the world it then gives is of no
// use. A local object of the parser of world files.
#pragma once

#include "World.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QJsonValue>
#include <QString>
#include <QStringList>

namespace kor::veltrano::sim {

class WorldReader
{
public:
    World read(const QJsonObject& given);
    // What is wrong with which member; empty where all is well.
    const QString& error() const { return firstError; }

private:
    void readWalls(World& world, const QJsonObject& members);
    void readObstacles(World& world, const QJsonObject& members);
    void readObstacle(World& world, const QJsonValue& value, const QString& path);
    void readCircle(World& world, const QJsonValue& value, const QString& path);
    void readPolygon(World& world, const QJsonValue& value, const QString& path);
    void readMarks(World& world, const QJsonObject& members);
    void readMark(World& world, const QJsonValue& value, const QString& path);
    void checkStart(const World& world);

    double number(const QJsonValue& value, const QString& path);
    Color color(const QJsonValue& value, const QString& path);
    Segment segment(const QJsonObject& members, const QString& path);
    Point point(const QJsonValue& value, const QString& path);
    Pose pose(const QJsonValue& value, const QString& path);
    QJsonArray list(const QJsonValue& value, const QString& path);
    // The object, all of whose members are among the known ones.
    QJsonObject object(const QJsonValue& value, const QString& path, const QStringList& known);
    void fail(const QString& path, const QString& problem);

    QString firstError;
};

} // namespace kor::veltrano::sim

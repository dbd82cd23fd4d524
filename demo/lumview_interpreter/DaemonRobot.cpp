#include "DaemonRobot.h"

#include "Problem.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QUuid>

namespace kor::veltrano::lumview {

namespace {

constexpr int statusOk = 200;

const char* pathOf(Sensor sensor)
{
    switch (sensor) {
    case Sensor::Odometry:
        return "/data/odometry";
    case Sensor::Distance:
        return "/data/distancesensorarray";
    case Sensor::Analog:
        return "/data/analoginputarray";
    case Sensor::Digital:
        return "/data/digitalinputarray";
    case Sensor::Bumper:
        break;
    }
    return "/data/bumper";
}

} // namespace

DaemonRobot::DaemonRobot(const std::string& daemon, const std::string& userRole,
                         const std::string& rolePassword)
    : client(daemon),
      role(userRole),
      password(rolePassword),
      session("lumview-" + QUuid::createUuid().toByteArray(QUuid::WithoutBraces))
{
}

void DaemonRobot::drive(double vx, double vy, double omega)
{
    if (!isLoggedIn) {
        logIn();
    }
    const QJsonDocument speeds(QJsonArray{vx, vy, omega});
    if (send("PUT", "/data/omnidrive", speeds.toJson(QJsonDocument::Compact)).status != statusOk) {
        throw Problem("the robot refuses to drive like that; expected speeds within its limits");
    }
}

double DaemonRobot::read(Sensor sensor, int number)
{
    const QJsonDocument answer = get(pathOf(sensor));
    const QJsonValue value = sensor == Sensor::Bumper ? answer.object()[QStringLiteral("value")]
                                                      : answer.array()[number];
    // The language knows numbers and texts only.
    if (value.isBool()) {
        return value.toBool() ? 1 : 0;
    }
    if (!value.isDouble()) {
        throw Problem("the robot has told no value of this sensor");
    }
    return value.toDouble();
}

void DaemonRobot::logIn()
{
    const QJsonDocument login(
        QJsonObject{{QStringLiteral("role"), QString::fromStdString(role)},
                    {QStringLiteral("password"), QString::fromStdString(password)}});
    send("POST", "/data/login", login.toJson(QJsonDocument::Compact));
    // The answer to a login may name a role that the session doesn't have.
    const QString given = get("/data/userrole").object()[QStringLiteral("role")].toString();
    if (given != QLatin1String("operator") && given != QLatin1String("admin")) {
        throw Problem("the robot may not be driven: the daemon at " + client.address()
                      + " doesn't accept the password of the role " + role);
    }
    isLoggedIn = true;
}

HttpReply DaemonRobot::send(const char* method, const char* path, const QByteArray& body)
{
    return client.request(method, path + QByteArray("?sid=") + session, body);
}

QJsonDocument DaemonRobot::get(const char* path)
{
    const QJsonDocument answer = QJsonDocument::fromJson(send("GET", path, {}).body);
    if (answer.isNull()) {
        throw Problem("the daemon at " + client.address() + " gives no answer to " + path);
    }
    return answer;
}

} // namespace kor::veltrano::lumview

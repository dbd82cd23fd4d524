// DaemonRobot: the robot as the daemon's HTTP interface shows it.
//
// Created by main for one run; all calls come from the program's thread and wait for the reply. It
// logs in, in a session of its own, before it drives for the first time; reading needs no role.
#pragma once

#include "HttpClient.h"
#include "Robot.h"

#include <QJsonDocument>

#include <string>

namespace kor::veltrano::lumview {

class DaemonRobot : public Robot
{
public:
    // Throws a Problem if the daemon's address isn't one of the form http://HOST:PORT; nothing is
    // sent yet.
    DaemonRobot(const std::string& daemon, const std::string& userRole,
                const std::string& rolePassword);

    void drive(double vx, double vy, double omega) override;
    double read(Sensor sensor, int number) override;

private:
    void logIn();
    HttpReply send(const char* method, const char* path, const QByteArray& body);
    // The reply to a GET, which must be JSON.
    QJsonDocument get(const char* path);

    HttpClient client;
    std::string role;
    std::string password;
    QByteArray session;
    bool isLoggedIn = false;
};

} // namespace kor::veltrano::lumview

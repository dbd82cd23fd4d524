// Event: a notification of the robot to its clients, before it is written as a line.
#pragma once

#include <QJsonObject>
#include <QString>

namespace kor::veltrano::sim {

struct Event {
    QString method;
    QJsonObject params;
};

} // namespace kor::veltrano::sim

#include "robot/MyOdometry.h"

#include "support/Json.h"

#include <QMutexLocker>

namespace kor::veltrano::daemons {

MyOdometry* odometry = nullptr;

void MyOdometry::readingsEvent(double newX, double newY, double newPhi, float newVx, float newVy,
                               float newOmega, int newSequence)
{
    const QMutexLocker lock(&valuesMutex);
    x = newX;
    y = newY;
    phi = newPhi;
    vx = newVx;
    vy = newVy;
    omega = newOmega;
    sequence = newSequence;
}

QByteArray MyOdometry::data() const
{
    const QMutexLocker lock(&valuesMutex);
    return renderJson(QJsonArray{x, y, phi, double(vx), double(vy), double(omega), sequence});
}

} // namespace kor::veltrano::daemons

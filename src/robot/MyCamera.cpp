#include "robot/MyCamera.h"

#include "robot/MyCom.h"

namespace kor::veltrano::daemons {

MyCamera* camera = nullptr;

MyCamera::MyCamera()
{
    setJPGDecodingEnabled(false);
    QObject::connect(&idleTimer, &QTimer::timeout, &idleTimer, [this] { tick(); });
    idleTimer.start(tickIntervalMs);
}

MyCamera* MyCamera::acquire()
{
    camera->keepBound(com->id());
    return camera;
}

} // namespace kor::veltrano::daemons

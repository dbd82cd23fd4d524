// MyCamera: the camera. Images stay the JPEG bytes that arrive; the daemon neither stores nor
// decodes them. Built and deleted by main.
#pragma once

#include "robot/OnDemand.h"

#include "kor/veltrano/api2/Camera.h"

#include <QTimer>

namespace kor::veltrano::daemons {

class MyCamera : public OnDemand<api2::Camera>
{
public:
    MyCamera();

    // The camera, bound to the connection for the next seconds. Called before each use. Any thread.
    static MyCamera* acquire();

private:
    QTimer idleTimer;
};

extern MyCamera* camera;

} // namespace kor::veltrano::daemons

// ControllerInfo: the information record of the robot's controller.
#pragma once

namespace kor::veltrano::api2 {

class ControllerInfo
{
public:
    ControllerInfo();
    virtual ~ControllerInfo();
    ControllerInfo(const ControllerInfo&) = delete;
    ControllerInfo& operator=(const ControllerInfo&) = delete;

    // A new record: size bytes of a format that belongs to the robot, valid during the call.
    virtual void infoChangedEvent(const char* data, int size);
};

} // namespace kor::veltrano::api2

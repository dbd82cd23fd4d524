// Bumper: the contact strip around the robot.
#pragma once

namespace kor::veltrano::api2 {

class Bumper
{
public:
    Bumper();
    virtual ~Bumper();
    Bumper(const Bumper&) = delete;
    Bumper& operator=(const Bumper&) = delete;

    // The strip has been touched (true) or released.
    virtual void bumperEvent(bool hit);

    // True while the robot touches something; false before the first event. Any thread.
    bool value() const;
};

} // namespace kor::veltrano::api2

// OmniDrive: the omnidirectional drive.
#pragma once

namespace kor::veltrano::api2 {

class OmniDrive
{
public:
    OmniDrive();
    virtual ~OmniDrive();
    OmniDrive(const OmniDrive&) = delete;
    OmniDrive& operator=(const OmniDrive&) = delete;

    // The geometry of the wheels in m. Never sent over this connection.
    virtual void driveLayoutChangedEvent(double rb, double rw, double fctrl, double emax,
                                         double vmax);

    // Commands a velocity: vx, vy in m/s, omega in rad/s. It holds until the next command. Dropped
    // while the connection is down: a robot must not move late. Any thread.
    void setVelocity(float vx, float vy, float omega);
};

} // namespace kor::veltrano::api2

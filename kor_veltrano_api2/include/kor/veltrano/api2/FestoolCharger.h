// FestoolCharger: the information record of the battery pack's charger.
#pragma once

namespace kor::veltrano::api2 {

class FestoolCharger
{
public:
    FestoolCharger();
    virtual ~FestoolCharger();
    FestoolCharger(const FestoolCharger&) = delete;
    FestoolCharger& operator=(const FestoolCharger&) = delete;

    // A new record: size bytes of a format that belongs to the robot, valid during the call.
    virtual void infoChangedEvent(const char* data, int size);
};

} // namespace kor::veltrano::api2

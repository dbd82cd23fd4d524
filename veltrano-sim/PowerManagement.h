// PowerManagement: tells once a second how the robot is supplied.
#pragma once

#include "HeldReadings.h"

namespace kor::veltrano::sim {

class Battery;

class PowerManagement : public HeldReadings
{
public:
    // The battery must outlive the power management.
    explicit PowerManagement(const Battery& supply);

    std::vector<Event> state() const override;

protected:
    QJsonObject simulated() const override;

private:
    const Battery& battery;
};

} // namespace kor::veltrano::sim

// Bumper: the contact strip around the hull, raised while the robot touches something.
#pragma once

#include "Device.h"

#include <optional>

namespace kor::veltrano::sim {

class Robot;

class Bumper : public Device
{
public:
    // The robot must outlive the bumper.
    explicit Bumper(const Robot& carrier);

    bool value() const;

    std::vector<Event> state() const override;
    QJsonObject show() const override;
    Change prepare(const QString& key, const QJsonValue& value) override;
    bool isHeld() const override { return held.has_value(); }

protected:
    void simulate(double dtS) override;
    void unhold() override { held.reset(); }

private:
    const Robot& robot;
    std::optional<bool> held;
    bool last;
};

} // namespace kor::veltrano::sim

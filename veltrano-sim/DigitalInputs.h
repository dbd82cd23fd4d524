// DigitalInputs: eight inputs, wired to the eight digital outputs of the simulated robot.
#pragma once

#include "Device.h"

#include <optional>
#include <vector>

namespace kor::veltrano::sim {

class OutputArray;

class DigitalInputs : public Device
{
public:
    static constexpr int count = 8;

    // The outputs must be as many as the inputs and must outlive them.
    explicit DigitalInputs(const OutputArray& wired);

    // The outputs' values, unless held.
    std::vector<int> values() const;

    std::vector<Event> state() const override;
    QJsonObject show() const override;
    Change prepare(const QString& key, const QJsonValue& value) override;
    bool isHeld() const override { return held.has_value(); }

protected:
    void simulate(double dtS) override;
    void unhold() override { held.reset(); }

private:
    const OutputArray& outputs;
    std::optional<std::vector<int>> held;
    std::vector<int> last;
};

} // namespace kor::veltrano::sim

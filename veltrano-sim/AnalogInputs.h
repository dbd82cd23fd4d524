// AnalogInputs: eight voltages that wander slowly, measured five times a second.
//
// Each is a pure function of the seed and of the time simulated so far, so that it costs nothing
// while nobody listens and is the same for the same seed and steps.
#pragma once

#include "Device.h"

#include <optional>
#include <vector>

namespace kor::veltrano::sim {

class AnalogInputs : public Device
{
public:
    static constexpr int count = 8;

    explicit AnalogInputs(quint64 number);

    // In V, from 0 to 10 unless held.
    std::vector<double> values() const;

    std::vector<Event> state() const override;
    QJsonObject show() const override;
    Change prepare(const QString& key, const QJsonValue& value) override;
    bool isHeld() const override { return held.has_value(); }

protected:
    void simulate(double dtS) override { timeS += dtS; }
    void unhold() override { held.reset(); }

private:
    struct Wave {
        double meanV;
        double amplitudeV;
        double periodS;
        double phase;
    };

    std::vector<Wave> waves;
    const quint64 seed;
    double timeS = 0;
    std::optional<std::vector<double>> held;
};

} // namespace kor::veltrano::sim

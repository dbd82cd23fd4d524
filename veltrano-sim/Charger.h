// Charger: one of the two built-in chargers, which share the work.
//
// Its readings go out every second, its version and its error only after hello and when they have
// been set. There is no error until one is set; an error of no text is told as such when set, and
// not after hello.
#pragma once

#include "HeldReadings.h"

namespace kor::veltrano::sim {

class Battery;

class Charger : public HeldReadings
{
public:
    // index is 0 or 1. The battery must outlive the charger.
    Charger(const Battery& filled, int index);

    std::vector<Event> state() const override;
    QJsonObject show() const override;
    // Readings are held; version and error stay as they are set.
    Change prepare(const QString& key, const QJsonValue& value) override;

protected:
    void simulate(double dtS) override;
    std::vector<Event> news() override;
    void forgetNews() override;
    QJsonObject simulated() const override;

private:
    struct State {
        int number;
        QString name;
    };
    State chargingState() const;
    Event event(const QString& method, QJsonObject params) const;
    Event info() const;
    Event versionEvent() const;
    Event errorEvent() const;

    const Battery& battery;
    const int number;
    double timeS = 0;
    double temperatureC = 24;
    QJsonObject version;
    QString error;
    bool isVersionNew = false;
    bool isErrorNew = false;
};

} // namespace kor::veltrano::sim

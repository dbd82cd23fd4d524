// HeldReadings: the base of devices that show one object of readings, which can be held.
//
// Any subset of the readings can be set; the others are then held as they are at that moment.
#pragma once

#include "Device.h"

#include <optional>

namespace kor::veltrano::sim {

class HeldReadings : public Device
{
public:
    QJsonObject show() const override;
    Change prepare(const QString& key, const QJsonValue& value) override;
    bool isHeld() const override { return held.has_value(); }

    // What was set, or else what the simulation gives.
    QJsonObject readings() const { return held ? *held : simulated(); }

protected:
    // wholeNumbers names the readings that are such; those in largeWholeNumbers go up to 2^32 - 1
    // and not below 0. An array is one of numbers, and may be set with any number of them.
    HeldReadings(const QString& key, double newsPeriodS, const QStringList& wholeNumbers,
                 const QStringList& largeWholeNumbers = {});

    virtual QJsonObject simulated() const = 0;
    void unhold() override { held.reset(); }

    // The readings with the given members put in their place, or the reason why they do not fit.
    struct Merged {
        QJsonObject readings;
        QString refusal;
    };
    Merged merged(const QJsonValue& value) const;
    void hold(const QJsonObject& readings) { held = readings; }

private:
    QString misfit(const QString& name, const QJsonValue& present, const QJsonValue& given) const;

    const QStringList integers;
    const QStringList largeIntegers;
    std::optional<QJsonObject> held;
};

} // namespace kor::veltrano::sim

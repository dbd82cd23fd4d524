// Device: one device of the simulated robot, as the base of them all.
//
// A device is stepped with the simulation, tells its events to the robot's clients, takes the
// commands that are meant for it, and can be looked at and set through the control door. The
// simulation creates it and owns it; the main thread alone calls it.
//
// Setting a value that the simulation would go on changing holds it: the device shows what was set
// until it is released.
#pragma once

#include "Change.h"
#include "Event.h"

#include <QJsonObject>
#include <QJsonValue>
#include <QString>
#include <QStringList>

#include <vector>

namespace kor::veltrano::sim {

class Device
{
public:
    Device(const Device&) = delete;
    Device& operator=(const Device&) = delete;
    virtual ~Device() = default;

    // The members of the whole state that show this device, and by which it is set.
    const QStringList& keys() const { return stateKeys; }

    // Lets dtS seconds pass.
    void step(double dtS);

    // The name that a client must have subscribed to for this device's events; empty where every
    // client gets them.
    virtual QString subscription() const { return {}; }
    // The present state as events, as a client is told it once after its hello.
    virtual std::vector<Event> state() const { return {}; }
    // True where something has changed or been measured that clients have not been told.
    bool hasNews() const { return newsWaiting; }
    // The events for it; from then on it counts as told.
    std::vector<Event> takeNews();
    // Counts everything as told, for when nobody listens.
    void dropNews();

    // Carries a client's command out. False where it is not meant for this device or where its
    // params do not fit.
    virtual bool command(const QString& method, const QJsonObject& params);

    // What the control door shows, a member for each key.
    virtual QJsonObject show() const = 0;
    // Checks a wish to set one of the keys.
    virtual Change prepare(const QString& key, const QJsonValue& value) = 0;
    virtual bool isHeld() const { return false; }
    // Lets the simulation go on where the device was held.
    void release();

protected:
    // With a newsPeriodS above 0 there is news every so many seconds.
    explicit Device(const QStringList& keys, double newsPeriodS = 0);

    void announce() { newsWaiting = true; }

    virtual void simulate(double dtS);
    // A period has passed, with or without anybody who listens.
    virtual void measure() { }
    virtual std::vector<Event> news() { return state(); }
    virtual void forgetNews() { }
    virtual void unhold() { }

private:
    const QStringList stateKeys;
    const double periodS;
    double untilNewsS;
    bool newsWaiting = false;
};

} // namespace kor::veltrano::sim

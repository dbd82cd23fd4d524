// Simulation: the simulated robot as a whole, all its devices in one world.
//
// It has no clock: whoever owns it calls step(), with the real time or, in a test, without any. For
// the same world, seed, commands and steps it shows the same state, the controller's record
// excepted. Main thread only.
#pragma once

#include "Device.h"
#include "World.h"

#include <memory>
#include <vector>

namespace kor::veltrano::sim {

class Simulation
{
public:
    // The length of a physics step in s: 100 steps a second.
    static constexpr double stepS = 0.01;

    Simulation(const World& surroundings, quint64 seed);

    // Lets dtS seconds pass, in one step of the physics.
    void step(double dtS);
    // How many seconds have passed.
    double timeS() const { return passedS; }

    const std::vector<std::unique_ptr<Device>>& devices() const { return all; }
    // Carries a client's command out. False where it is unknown or does not fit.
    bool command(const QString& method, const QJsonObject& params);

    // The world's name, the time, everything that the devices show and the keys that are held.
    QJsonObject show() const;
    // Sets any subset of the keys, all or nothing. Gives the reason of a refusal, else nothing.
    QString set(const QJsonObject& values);
    // Lets the named keys go on, or all where none are named. Gives the reason of a refusal.
    QString release(const QStringList& keys);

private:
    template<typename Kind, typename... Arguments>
    Kind& add(Arguments&&... arguments);
    Device* find(const QString& key) const;
    QString unknownKey(const QString& key) const;

    const World world;
    double passedS = 0;
    std::vector<std::unique_ptr<Device>> all;
};

} // namespace kor::veltrano::sim

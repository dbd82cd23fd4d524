// FakeRobot: remembers how it is driven and shows the readings that a test gives it.
#pragma once

#include "FakeClock.h"
#include "Problem.h"
#include "Robot.h"

#include <map>
#include <tuple>
#include <vector>

namespace kor::veltrano::lumview {

class FakeRobot : public Robot
{
public:
    struct Command {
        double vx = 0;
        double vy = 0;
        double omega = 0;
        // Since the clock's start.
        long timeMs = 0;

        bool isStop() const { return vx == 0 && vy == 0 && omega == 0; }
    };

    explicit FakeRobot(FakeClock& givenClock) : clock(givenClock) { }

    void drive(double vx, double vy, double omega) override
    {
        commands.push_back({vx, vy, omega, clock.timeMs()});
        clock.pass(delay);
        if (commands.size() >= refusedFrom) {
            throw Problem("refused");
        }
    }

    double read(Sensor sensor, int number) override { return readings.at({sensor, number}); }

    std::vector<Command> commands;
    std::map<std::pair<Sensor, int>, double> readings;
    // How long a command takes.
    std::chrono::milliseconds delay{0};
    // Commands from this one on, counted from 1, are refused.
    std::size_t refusedFrom = SIZE_MAX;

private:
    FakeClock& clock;
};

} // namespace kor::veltrano::lumview

#include "SimulationClock.h"

#include "RpcServer.h"
#include "Simulation.h"

namespace kor::veltrano::sim {

namespace {

constexpr int stepMs = 10;
constexpr int idleMs = 100;
constexpr int mostMissedMs = 500;

} // namespace

SimulationClock::SimulationClock(Simulation& stepped, RpcServer& told, QObject* parent)
    : QObject(parent), simulation(stepped), server(told)
{
    realTime.start();
    timer.setTimerType(Qt::PreciseTimer);
    connect(&timer, &QTimer::timeout, this, &SimulationClock::tick);
    timer.start(stepMs);
}

void SimulationClock::tick()
{
    catchUp();
    const int wantedMs = server.sessions().empty() ? idleMs : stepMs;
    if (timer.interval() != wantedMs) {
        timer.setInterval(wantedMs);
    }
}

void SimulationClock::catchUp()
{
    const qint64 nowMs = realTime.elapsed();
    if (nowMs - doneMs > mostMissedMs) {
        doneMs = nowMs - stepMs;
    }
    for (; doneMs + stepMs <= nowMs; doneMs += stepMs) {
        simulation.step(Simulation::stepS);
        server.publish();
    }
}

} // namespace kor::veltrano::sim

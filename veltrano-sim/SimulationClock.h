// SimulationClock: lets the simulation follow the real time, and the server tell what is new.
//
// It steps a hundred times a second, in batches while nobody is connected. After a stop of the
// whole process the robot goes on from where it was: it does not make up for the time.
#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>

namespace kor::veltrano::sim {

class RpcServer;
class Simulation;

class SimulationClock : public QObject
{
    Q_OBJECT

public:
    // Starts at once to step one and let the other tell its clients. Both must outlive the clock.
    SimulationClock(Simulation& stepped, RpcServer& told, QObject* parent = nullptr);

    // Steps up to the present, for whoever wants to look at the robot just now.
    void catchUp();

private:
    void tick();

    Simulation& simulation;
    RpcServer& server;
    QElapsedTimer realTime;
    qint64 doneMs = 0;
    QTimer timer;
};

} // namespace kor::veltrano::sim

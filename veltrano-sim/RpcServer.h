// RpcServer: the door for the robot's clients. It listens, tells each client the present state once
// and then what is new, and hands their commands to the simulation.
//
// main creates it; it needs the event loop. Main thread only.
#pragma once

#include "Faults.h"
#include "HostPort.h"

#include <QObject>
#include <QTcpServer>
#include <QTimer>

#include <vector>

namespace kor::veltrano::sim {

class CommandLog;
class Device;
class RpcSession;
class Simulation;
struct Event;

class RpcServer : public QObject
{
    Q_OBJECT

public:
    // The simulation and the log must outlive the server. The seed is the one of its faults.
    RpcServer(Simulation& robot, CommandLog& commands, quint64 seed, QObject* parent = nullptr);
    ~RpcServer() override;

    // Opens the door; port 0 takes any free port. Gives the reason of a failure, else nothing.
    QString listen(const HostPort& where);
    // Where it listens, with the port that was taken.
    const HostPort& address() const { return home; }

    // Tells the clients what the simulation's devices have to tell. To be called after each step
    // and after each change from outside.
    void publish();

    // The connections, whether up or not, in order of arrival.
    const std::vector<RpcSession*>& sessions() const { return connections; }
    // The same as a list of its own, for sending: a send that fails ends its session.
    std::vector<RpcSession*> sessionsNow() const { return connections; }
    Faults& faults() { return badness; }
    const Faults& faults() const { return badness; }
    // Ends all connections and refuses new ones for forMs.
    void drop(int forMs);

private:
    void accept();
    void welcome(RpcSession& session);
    void forget(RpcSession* session);
    void obey(RpcSession& session, const QString& method, const QJsonObject& params, int lineBytes);
    std::vector<RpcSession*> listeners(const Device& device) const;
    void comeBack();

    Simulation& simulation;
    CommandLog& log;
    Faults badness;
    QTcpServer server;
    HostPort home;
    QTimer absence;
    std::vector<RpcSession*> connections;
    int lastNumber = 0;
};

} // namespace kor::veltrano::sim

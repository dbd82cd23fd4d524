// ControlDoor: the door for tests, through which the simulated robot is looked at and made to do
// what a test needs.
//
// It speaks JSON-RPC 2.0 in the framing of the robot's own protocol, but has no hello and no rule
// of silence. Whoever reaches it has full power over the simulation, so that it is closed unless it
// is asked for. main creates it; main thread only.
#pragma once

#include "HostPort.h"

#include <QJsonObject>
#include <QObject>
#include <QTcpServer>

namespace kor::veltrano::rpc {
struct Message;
}

namespace kor::veltrano::sim {

class ControlMethods;
class LineSocket;

class ControlDoor : public QObject
{
    Q_OBJECT

public:
    // Adds sim.quit to the methods, which must outlive the door.
    explicit ControlDoor(ControlMethods& table, QObject* parent = nullptr);

    // Opens the door; port 0 takes any free port. Gives the reason of a failure, else nothing.
    QString listen(const HostPort& where);
    // Where it listens, with the port that was taken.
    const HostPort& address() const { return home; }

Q_SIGNALS:
    // A request is about to be carried out.
    void requested();
    // Somebody wants the program to end; the answer has been sent.
    void quitRequested();

private:
    void accept();
    void answer(LineSocket& line, const rpc::Message& request);

    ControlMethods& methods;
    QTcpServer server;
    HostPort home;
    bool quitting = false;
};

} // namespace kor::veltrano::sim

// Faults: what the robot's connections shall do badly, for the tests of clients.
//
// One object for all sessions, owned by the server and set through the control door. Main thread
// only.
#pragma once

#include <QJsonObject>

#include <random>

namespace kor::veltrano::sim {

class Faults
{
public:
    explicit Faults(quint64 seed) : random(seed) { }

    // By how long outgoing messages and incoming commands are kept back, in ms.
    int delayMs = 0;
    // The probability, 0 to 1, with which an outgoing event is lost.
    double loseProbability = 0;
    // True where nothing at all is sent.
    bool isMuted = false;
    // The protocol that hello is answered with.
    int protocol = 1;

    // What the control door shows of them.
    QJsonObject show() const;
    // Draws whether the next event is lost.
    bool losesEvent();

private:
    std::mt19937_64 random;
};

} // namespace kor::veltrano::sim

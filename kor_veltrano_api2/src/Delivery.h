// Delivery: calls the virtual operations of all objects that an event concerns.
//
// Made by Com::processEvents() on its caller's thread, without any lock held during a call.
#pragma once

#include "Events.h"
#include "Library.h"

namespace kor::veltrano::api2::detail {

class Delivery
{
public:
    // Delivers what has arrived up to now; what arrives meanwhile is left to the next call. Does
    // nothing where another delivery is going on, on this thread or another.
    static void run(Library& library);

    // For std::visit().
    void operator()(const AnalogValues& event) const;
    void operator()(const DigitalValues& event) const;
    void operator()(const Distances& event) const;
    void operator()(const DistanceVoltages& event) const;
    void operator()(const BumperState& event) const;
    void operator()(const OdometryReadings& event) const;
    void operator()(const PowerReadings& event) const;
    void operator()(const ChargerInfo& event) const;
    void operator()(const ChargerVersion& event) const;
    void operator()(const ChargerError& event) const;
    void operator()(const ControllerRecord& event) const;
    void operator()(const FestoolRecord& event) const;
    void operator()(const CameraImage& event) const;
    void operator()(const Scan& event) const;
    void operator()(const Connected& event) const;
    void operator()(const Disconnected& event) const;

private:
    Delivery(Library& parts, Roster::Round& ownRound, const QueuedEvent& queuedEvent)
        : library(parts), round(ownRound), queued(queuedEvent)
    {
    }

    template<class Call>
    void toCharger(int number, const Call& call) const;
    template<class Call>
    void toCom(const Call& call) const;

    Library& library;
    Roster::Round& round;
    const QueuedEvent& queued;
};

} // namespace kor::veltrano::api2::detail

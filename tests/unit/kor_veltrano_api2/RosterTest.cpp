#include "Roster.h"

#include <gtest/gtest.h>

#include <atomic>
#include <future>
#include <string>

using kor::veltrano::api2::detail::Roster;

namespace {

struct Sensor {
    std::string name;
};

struct Actor {
};

std::string namesOf(Roster::Round* round)
{
    std::string names;
    round->forEach<Sensor>([&names](Sensor& sensor) { names += sensor.name; });
    return names;
}

TEST(Roster, CallsTheLivingObjectsOfOneClassInOrderOfEntering)
{
    Roster roster;
    Sensor a{"a"};
    Sensor b{"b"};
    Sensor c{"c"};
    Actor actor;
    roster.add(&a);
    roster.add(&actor);
    roster.add(&b);
    roster.add(&c);
    roster.remove(&b);
    Roster::Round round(roster);
    EXPECT_EQ(namesOf(&round), "ac");
}

TEST(Roster, DoesNotCallWhatEnteredAfterTheRoundBegan)
{
    Roster roster;
    Sensor a{"a"};
    Sensor b{"b"};
    roster.add(&a);
    {
        Roster::Round round(roster);
        roster.add(&b);
        EXPECT_EQ(namesOf(&round), "a");
    }
    Roster::Round next(roster);
    EXPECT_EQ(namesOf(&next), "ab");
}

TEST(Roster, HasOneRoundAtATime)
{
    Roster roster;
    {
        const Roster::Round outer(roster);
        EXPECT_TRUE(outer.isEntered());
        EXPECT_FALSE(Roster::Round(roster).isEntered());
        EXPECT_FALSE(std::async([&roster] { return Roster::Round(roster).isEntered(); }).get());
    }
    EXPECT_TRUE(Roster::Round(roster).isEntered());
}

TEST(Roster, DoesNotCallWhatLeavesDuringTheRound)
{
    Roster roster;
    Sensor a{"a"};
    Sensor b{"b"};
    roster.add(&a);
    roster.add(&b);
    Roster::Round round(roster);
    std::string names;
    round.forEach<Sensor>([&](Sensor& sensor) {
        names += sensor.name;
        roster.remove(&a);
        roster.remove(&b);
    });
    EXPECT_EQ(names, "a");
}

TEST(Roster, LeavingWaitsForACallOnAnotherThread)
{
    Roster roster;
    Sensor a{"a"};
    roster.add(&a);
    std::promise<void> isInside;
    std::promise<void> mayReturn;
    std::atomic<bool> hasReturned = false;
    const std::future<void> caller = std::async(std::launch::async, [&] {
        Roster::Round round(roster);
        round.forEach<Sensor>([&](Sensor&) {
            isInside.set_value();
            mayReturn.get_future().wait();
            hasReturned = true;
        });
    });
    isInside.get_future().wait();
    std::future<bool> leaver = std::async(std::launch::async, [&] {
        roster.remove(&a);
        return hasReturned.load();
    });
    EXPECT_EQ(leaver.wait_for(std::chrono::milliseconds(50)), std::future_status::timeout);
    mayReturn.set_value();
    EXPECT_TRUE(leaver.get());
    caller.wait();
}

TEST(Roster, LeavingDoesNotWaitForACallOfAnotherObject)
{
    Roster roster;
    Sensor a{"a"};
    Sensor b{"b"};
    roster.add(&a);
    roster.add(&b);
    Roster::Round round(roster);
    std::string names;
    round.forEach<Sensor>([&](Sensor& sensor) {
        names += sensor.name;
        std::async(std::launch::async, [&] { roster.remove(&b); }).wait();
    });
    EXPECT_EQ(names, "a");
}

} // namespace

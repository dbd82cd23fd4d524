#include "EventQueue.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <vector>

using namespace kor::veltrano::api2::detail;

namespace {

constexpr auto always = std::numeric_limits<std::uint64_t>::max();

class EventQueueTest : public testing::Test
{
protected:
    void push(Event event) { queue.push({++arrivals, 1, std::move(event)}); }

    std::vector<std::size_t> takenKinds()
    {
        std::vector<std::size_t> kinds;
        while (const auto next = queue.takeNext(always)) {
            kinds.push_back(next->event.index());
        }
        return kinds;
    }

    template<class Value>
    static std::size_t kind()
    {
        return Event(Value()).index();
    }

    EventQueue queue;
    std::uint64_t arrivals = 0;
};

TEST_F(EventQueueTest, GivesDifferentStatesInOrderOfArrival)
{
    push(BumperState());
    push(AnalogValues());
    push(OdometryReadings());
    EXPECT_EQ(takenKinds(),
              (std::vector{kind<BumperState>(), kind<AnalogValues>(), kind<OdometryReadings>()}));
}

TEST_F(EventQueueTest, KeepsOnlyTheNewestOfAStateInThePlaceOfItsArrival)
{
    push(BumperState{true});
    push(AnalogValues());
    push(BumperState{false});
    EXPECT_EQ(queue.takeNext(always)->event.index(), kind<AnalogValues>());
    EXPECT_FALSE(std::get<BumperState>(queue.takeNext(always)->event).isHit);
    EXPECT_FALSE(queue.takeNext(always));
}

TEST_F(EventQueueTest, KeepsTheStatesOfBothChargersApart)
{
    push(ChargerInfo{0, 10, 0, 0, 0, 0, 0, {}});
    push(ChargerInfo{1, 20, 0, 0, 0, 0, 0, {}});
    push(ChargerVersion{0, 1, 2, 3});
    push(ChargerError{1, 5, "hot"});
    push(ChargerInfo{0, 30, 0, 0, 0, 0, 0, {}});
    EXPECT_EQ(queue.size(), 4U);
    EXPECT_EQ(std::get<ChargerInfo>(queue.takeNext(always)->event).time, 20U);
}

TEST_F(EventQueueTest, LeavesEventsThatArrivedLaterThanAskedFor)
{
    push(BumperState());
    push(AnalogValues());
    EXPECT_TRUE(queue.takeNext(1));
    EXPECT_FALSE(queue.takeNext(1));
    EXPECT_TRUE(queue.takeNext(2));
}

TEST_F(EventQueueTest, KeepsAllEventsOfTheConnectionInOrder)
{
    push(Connected());
    push(BumperState());
    push(Disconnected());
    push(Connected());
    EXPECT_EQ(takenKinds(),
              (std::vector{kind<Connected>(), kind<BumperState>(), kind<Disconnected>(),
                           kind<Connected>()}));
}

TEST_F(EventQueueTest, IsBoundedWhereNobodyTakes)
{
    for (int i = 0; i < 1'000; ++i) {
        push(Connected());
        push(CameraImage());
        push(ChargerInfo{i % 2, 0, 0, 0, 0, 0, 0, {}});
        push(Disconnected());
    }
    EXPECT_LE(queue.size(), EventQueue::maxConnectionEvents + std::variant_size_v<Event> + 3);
}

TEST_F(EventQueueTest, ConnectedAndDisconnectedAlternateAlsoPastTheBound)
{
    for (int i = 0; i < 1'000; ++i) {
        push(Connected());
        push(Disconnected());
    }
    push(Connected());
    const std::vector<std::size_t> kinds = takenKinds();
    ASSERT_GE(kinds.size(), 2U);
    EXPECT_EQ(kinds.back(), kind<Connected>());
    for (std::size_t i = 1; i < kinds.size(); ++i) {
        EXPECT_NE(kinds[i], kinds[i - 1]);
    }
}

} // namespace

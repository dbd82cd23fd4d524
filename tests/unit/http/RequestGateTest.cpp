#include "http/RequestGate.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <future>
#include <optional>

namespace kor::veltrano::daemons {
namespace {

TEST(RequestGateTest, AnOpenGateGivesPassesToAll)
{
    RequestGate gate;
    const RequestGate::Pass first(gate);
    const RequestGate::Pass second(gate);
    EXPECT_TRUE(first);
    EXPECT_TRUE(second);
}

TEST(RequestGateTest, AClosedGateGivesNone)
{
    RequestGate gate;
    gate.close();
    EXPECT_FALSE(RequestGate::Pass(gate));
}

TEST(RequestGateTest, ClosingWaitsForTheLastRequestInside)
{
    RequestGate gate;
    std::optional<RequestGate::Pass> inside(std::in_place, gate);
    auto closing = std::async(std::launch::async, [&gate] { gate.close(); });
    while (RequestGate::Pass(gate)) {
        std::this_thread::yield();
    }
    EXPECT_EQ(closing.wait_for(std::chrono::milliseconds(50)), std::future_status::timeout);
    inside.reset();
    EXPECT_EQ(closing.wait_for(std::chrono::seconds(10)), std::future_status::ready);
}

} // namespace
} // namespace kor::veltrano::daemons

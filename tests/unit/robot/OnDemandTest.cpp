#include "robot/OnDemand.h"

#include "kor/veltrano/api2/ComId.h"

#include <gtest/gtest.h>

namespace kor::veltrano::daemons {
namespace {

// Stands for the library's device: only counts how often it is bound.
class Device
{
public:
    explicit Device(const api2::ComId& initialId) : id(initialId) { }

    void setComId(const api2::ComId& newId)
    {
        id = newId;
        ++bindings;
    }
    api2::ComId comId() const { return id; }

    api2::ComId id;
    int bindings = 0;
};

const api2::ComId connection(7);

TEST(OnDemandTest, StartsDetachedAndStaysSo)
{
    OnDemand<Device> device;
    device.tick();
    EXPECT_EQ(device.comId(), api2::ComId::null());
    EXPECT_EQ(device.bindings, 0);
}

TEST(OnDemandTest, ARequestBindsOnce)
{
    OnDemand<Device> device;
    device.keepBound(connection);
    device.keepBound(connection);
    EXPECT_EQ(device.comId(), connection);
    EXPECT_EQ(device.bindings, 1);
}

TEST(OnDemandTest, TheTenthTickWithoutARequestDetachesOnce)
{
    OnDemand<Device> device;
    device.keepBound(connection);
    for (int tick = 1; tick <= 9; ++tick) {
        device.tick();
        EXPECT_EQ(device.comId(), connection) << tick;
    }
    for (int tick = 10; tick <= 25; ++tick) {
        device.tick();
        EXPECT_EQ(device.comId(), api2::ComId::null()) << tick;
    }
    EXPECT_EQ(device.bindings, 2);
}

TEST(OnDemandTest, ARequestASecondKeepsItBound)
{
    OnDemand<Device> device;
    for (int second = 0; second < 30; ++second) {
        device.keepBound(connection);
        device.tick();
    }
    EXPECT_EQ(device.bindings, 1);
}

TEST(OnDemandTest, ARequestAfterDetachingBindsAgainForTheWholeTime)
{
    OnDemand<Device> device;
    device.keepBound(connection);
    for (int tick = 0; tick < 10; ++tick) {
        device.tick();
    }
    device.keepBound(connection);
    for (int tick = 0; tick < 9; ++tick) {
        device.tick();
    }
    EXPECT_EQ(device.comId(), connection);
}

} // namespace
} // namespace kor::veltrano::daemons

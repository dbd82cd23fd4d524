#include "RecordingCom.h"

#include "kor/veltrano/api2/AnalogInputArray.h"
#include "kor/veltrano/api2/Bumper.h"
#include "kor/veltrano/api2/ControllerInfo.h"
#include "kor/veltrano/api2/DigitalInputArray.h"
#include "kor/veltrano/api2/DistanceSensorArray.h"
#include "kor/veltrano/api2/FestoolCharger.h"
#include "kor/veltrano/api2/Odometry.h"
#include "kor/veltrano/api2/PowerManagement.h"

#include <array>
#include <functional>
#include <memory>

using namespace kor::veltrano::api2;

namespace {

using Events = std::vector<std::string>;

std::string textOf(const float* values, unsigned int count)
{
    std::string text;
    for (unsigned int i = 0; i < count; ++i) {
        text += " " + QByteArray::number(static_cast<double>(values[i])).toStdString();
    }
    return text;
}

struct LoggingBumper : Bumper {
    explicit LoggingBumper(Events* target) : log(target) { }
    void bumperEvent(bool hit) override
    {
        log->emplace_back(hit ? "hit" : "released");
        if (next) {
            next();
        }
    }

    Events* log;
    std::function<void()> next;
};

struct LoggingOdometry : Odometry {
    explicit LoggingOdometry(Events* target) : log(target) { }
    void readingsEvent(double x, double y, double phi, float vx, float vy, float omega,
                       int sequence) override
    {
        const std::array<float, 6> values{
            static_cast<float>(x), static_cast<float>(y), static_cast<float>(phi), vx, vy, omega};
        log->push_back("odometry" + textOf(values.data(), 6) + " #" + std::to_string(sequence));
    }

    Events* log;
};

struct LoggingSensors : AnalogInputArray, DigitalInputArray, DistanceSensorArray {
    explicit LoggingSensors(Events* target) : log(target) { }
    void valuesChangedEvent(const float* values, unsigned int count) override
    {
        log->push_back("analog" + textOf(values, count));
    }
    void valuesChangedEvent(const int* values, unsigned int count) override
    {
        log->push_back("digital " + std::to_string(count) + " " + std::to_string(values[7]));
    }
    void distancesChangedEvent(const float* values, unsigned int count) override
    {
        log->push_back("distances" + textOf(values, count));
    }
    void voltagesChangedEvent(const float* values, unsigned int count) override
    {
        log->push_back("voltages" + textOf(values, count));
    }

    Events* log;
};

struct LoggingPower : PowerManagement {
    explicit LoggingPower(Events* target) : log(target) { }
    void readingsEvent(float voltage, float current, bool extPower, int numChargers,
                       const char* batteryType, bool batteryLow, int counter) override
    {
        const std::array<float, 2> values{voltage, current};
        log->push_back("power" + textOf(values.data(), 2) + (extPower ? " ext " : " ")
                       + std::to_string(numChargers) + " " + batteryType
                       + (batteryLow ? " low " : " ") + std::to_string(counter));
    }

    Events* log;
};

struct LoggingRecords : ControllerInfo {
    explicit LoggingRecords(Events* target) : log(target) { }
    void infoChangedEvent(const char* data, int size) override
    {
        log->push_back("controller " + std::string(data, static_cast<std::size_t>(size)));
    }

    Events* log;
};

struct LoggingFestool : FestoolCharger {
    explicit LoggingFestool(Events* target) : log(target) { }
    void infoChangedEvent(const char* data, int size) override
    {
        log->push_back("festool " + std::string(data, static_cast<std::size_t>(size)));
    }

    Events* log;
};

class EventDeliveryTest : public ConnectedTest
{
protected:
    void SetUp() override
    {
        peer.emplace(connect());
        com.processEvents();
    }

    void hit(bool isHit)
    {
        peer->notify("bumper.changed", isHit ? R"({"value":true})" : R"({"value":false})");
    }

    std::optional<ScriptedPeer> peer;
    Events log;
};

TEST_F(EventDeliveryTest, EveryDeviceGetsItsEventWithItsValues)
{
    const LoggingSensors sensors(&log);
    const LoggingOdometry odometry(&log);
    const LoggingPower power(&log);
    const LoggingRecords controller(&log);
    const LoggingFestool festool(&log);
    peer->notify("analogInputArray.valuesChanged", R"({"values":[1,2,3,4,5,6,7,8.5]})");
    peer->notify("digitalInputArray.valuesChanged", R"({"values":[0,0,0,0,0,0,0,3]})");
    peer->notify("distanceSensorArray.distancesChanged", R"({"values":[1,2,3,4,5,6,7,8,9]})");
    peer->notify("distanceSensorArray.voltagesChanged", R"({"values":[9,8,7,6,5,4,3,2,1]})");
    peer->notify("odometry.readings",
                 R"({"x":1,"y":2,"phi":3,"vx":4,"vy":5,"omega":6,"sequence":7})");
    peer->notify("powerManagement.readings",
                 R"({"voltage":24,"current":1,"ext_power":true,"num_chargers":2,
                     "batteryType":"LiFe","batteryLow":true,"batteryLowShutdownCounter":9})");
    peer->notify("controllerInfo.infoChanged", R"({"data":"YWI="})");
    peer->notify("festoolCharger.infoChanged", R"({"data":"AGI="})");
    peer->sync();
    com.processEvents();
    EXPECT_EQ(
        log,
        (Events{"analog 1 2 3 4 5 6 7 8.5", "digital 8 3", "distances 1 2 3 4 5 6 7 8 9",
                "voltages 9 8 7 6 5 4 3 2 1", "odometry 1 2 3 4 5 6 #7",
                "power 24 1 ext 2 LiFe low 9", "controller ab", std::string("festool \0b", 10)}));
}

TEST_F(EventDeliveryTest, GettersAnswerBeforeTheEventIsDelivered)
{
    peer->notify("powerManagement.readings",
                 R"({"voltage":25.5,"current":1,"ext_power":true,"num_chargers":2,
                     "batteryType":"Blei","batteryLow":true,"batteryLowShutdownCounter":9})");
    peer->notify("analogInputArray.valuesChanged", R"({"values":[1,2,3,4,5,6,7,0.1]})");
    peer->sync();
    const PowerManagement power;
    EXPECT_EQ(power.voltage(), 25.5F);
    EXPECT_TRUE(power.ext_power());
    EXPECT_EQ(power.num_chargers(), 2);
    EXPECT_STREQ(power.batteryType(), "Blei");
    EXPECT_TRUE(power.batteryLow());
    EXPECT_EQ(power.batteryLowShutdownCounter(), 9);
    std::array<float, 8> values{};
    AnalogInputArray().values(values.data());
    EXPECT_EQ(values.back(), 0.1F);
}

TEST_F(EventDeliveryTest, TextStaysValidUntilTheSameThreadAsksAgain)
{
    const auto sendType = [this](const char* type) {
        peer->notify("powerManagement.readings",
                     QJsonObject{{"voltage", 1},
                                 {"current", 1},
                                 {"ext_power", true},
                                 {"num_chargers", 1},
                                 {"batteryType", type},
                                 {"batteryLow", true},
                                 {"batteryLowShutdownCounter", 1}});
        peer->sync();
    };
    const PowerManagement power;
    sendType("first");
    const char* text = power.batteryType();
    sendType("second");
    std::thread([&power] { EXPECT_STREQ(power.batteryType(), "second"); }).join();
    EXPECT_STREQ(text, "first");
    EXPECT_STREQ(power.batteryType(), "second");
}

TEST_F(EventDeliveryTest, OfAStateOnlyTheNewestEventIsDeliveredInTheOrderOfArrival)
{
    const LoggingBumper bumper(&log);
    const LoggingRecords controller(&log);
    hit(true);
    peer->notify("controllerInfo.infoChanged", R"({"data":"YQ=="})");
    hit(false);
    peer->sync();
    com.processEvents();
    EXPECT_EQ(log, (Events{"controller a", "released"}));
    com.processEvents();
    EXPECT_EQ(log.size(), 2U);
}

TEST_F(EventDeliveryTest, SpoiledNotificationsAreIgnoredAndTheConnectionStays)
{
    const LoggingBumper bumper(&log);
    hit(true);
    peer->notify("bumper.changed", R"({"value":0})");
    peer->notify("bumper.changed", R"([false])");
    peer->notify("bumper.changed", "null");
    peer->notify("bumper.unknown", R"({"value":false})");
    peer->sendRaw("{\"jsonrpc\":\"2.0\",\"method\":\"bumper.changed\"}\n");
    peer->sendRaw("{}\n\n{\"method\":7,\"params\":{\"value\":false}}\n");
    peer->sync();
    com.processEvents();
    EXPECT_EQ(log, Events{"hit"});
    EXPECT_TRUE(bumper.value());
    EXPECT_EQ(com.events, Events{"connected"});
}

TEST_F(EventDeliveryTest, EventsThatArriveInAHandlerAreLeftToTheNextCall)
{
    LoggingBumper bumper(&log);
    bumper.next = [this, &bumper] {
        bumper.next = nullptr;
        hit(false);
        peer->sync();
    };
    hit(true);
    peer->sync();
    com.processEvents();
    EXPECT_EQ(log, Events{"hit"});
    com.processEvents();
    EXPECT_EQ(log, (Events{"hit", "released"}));
}

TEST_F(EventDeliveryTest, ACallInsideAHandlerDeliversNothing)
{
    LoggingBumper bumper(&log);
    const LoggingRecords controller(&log);
    bumper.next = [this] {
        com.processEvents();
        log.emplace_back("inner call over");
    };
    hit(true);
    peer->notify("controllerInfo.infoChanged", R"({"data":"YQ=="})");
    peer->sync();
    com.processEvents();
    EXPECT_EQ(log, (Events{"hit", "inner call over", "controller a"}));
}

TEST_F(EventDeliveryTest, HandlersMayCreateAndDestroyObjects)
{
    auto first = std::make_unique<LoggingBumper>(&log);
    auto second = std::make_unique<LoggingBumper>(&log);
    std::unique_ptr<LoggingBumper> third;
    first->next = [this, &second, &third] {
        second.reset();
        third = std::make_unique<LoggingBumper>(&log);
    };
    hit(true);
    peer->sync();
    com.processEvents();
    EXPECT_EQ(log, Events{"hit"});
    log.clear();
    first->next = nullptr;
    hit(false);
    peer->sync();
    com.processEvents();
    EXPECT_EQ(log, (Events{"released", "released"}));
}

TEST_F(EventDeliveryTest, AHandlerMayDestroyItsOwnObject)
{
    auto* bumper = new LoggingBumper(&log);
    bumper->next = [bumper] {
        const auto copy = bumper;
        delete copy;
    };
    hit(true);
    peer->sync();
    com.processEvents();
    hit(false);
    peer->sync();
    com.processEvents();
    EXPECT_EQ(log, Events{"hit"});
}

TEST_F(EventDeliveryTest, AfterAHandlerThatThrowsTheOtherEventsAreStillThere)
{
    LoggingBumper bumper(&log);
    const LoggingRecords controller(&log);
    bumper.next = [] { throw std::runtime_error("handler"); };
    hit(true);
    peer->notify("controllerInfo.infoChanged", R"({"data":"YQ=="})");
    peer->sync();
    EXPECT_THROW(com.processEvents(), std::runtime_error);
    com.processEvents();
    EXPECT_EQ(log, (Events{"hit", "controller a"}));
}

TEST_F(EventDeliveryTest, WhatWasReceivedIsKeptWhenTheConnectionIsLost)
{
    const LoggingBumper bumper(&log);
    hit(true);
    peer->sync();
    peer->close();
    EXPECT_TRUE(com.processUntil([this] { return com.events.back() == "disconnected"; }));
    EXPECT_EQ(log, Events{"hit"});
    EXPECT_TRUE(bumper.value());
}

} // namespace

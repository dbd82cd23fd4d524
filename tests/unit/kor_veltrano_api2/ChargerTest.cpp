#include "RecordingCom.h"

#include "kor/veltrano/api2/Charger.h"

using namespace kor::veltrano::api2;

namespace {

using Events = std::vector<std::string>;

struct LoggingCharger : Charger {
    LoggingCharger(int number, Events* target) : log(target) { setChargerNumber(number); }
    void chargerInfoChanged(unsigned int time, float, float, float, float, int stateNumber,
                            const char* state) override
    {
        add("info " + std::to_string(time) + " " + std::to_string(stateNumber) + " " + state);
    }
    void chargerErrorChanged(unsigned int time, const char* message) override
    {
        add("error " + std::to_string(time) + " " + message);
    }
    void chargerVersionChanged(int major, int minor, int patch) override
    {
        add("version " + std::to_string(major) + "." + std::to_string(minor) + "."
            + std::to_string(patch));
    }
    void add(const std::string& text)
    {
        log->push_back(std::to_string(chargerNumber()) + ": " + text);
    }

    Events* log;
};

class ChargerTest : public ConnectedTest
{
protected:
    static const char* info(int number)
    {
        return number == 0
            ? R"({"chargerNumber":0,"time":4294967295,"batteryVoltage":24.5,"chargingCurrent":1.5,
                  "bat1temp":20.5,"bat2temp":-3.5,"state_number":4,"state":"l\u00e4dt"})"
            : R"({"chargerNumber":1,"time":7,"batteryVoltage":1,"chargingCurrent":2,"bat1temp":3,
                  "bat2temp":4,"state_number":5,"state":"off"})";
    }
};

TEST_F(ChargerTest, EachObjectAnswersForTheChargerOfItsNumber)
{
    ScriptedPeer peer = connect();
    peer.notify("charger.infoChanged", info(0));
    peer.notify("charger.infoChanged", info(1));
    peer.notify("charger.versionChanged", R"({"chargerNumber":1,"major":3,"minor":2,"patch":1})");
    peer.sync();
    Charger charger;
    EXPECT_EQ(charger.time(), 4294967295U);
    EXPECT_EQ(charger.batteryVoltage(), 24.5F);
    EXPECT_EQ(charger.chargingCurrent(), 1.5F);
    EXPECT_EQ(charger.bat1temp(), 20.5F);
    EXPECT_EQ(charger.bat2temp(), -3.5F);
    EXPECT_EQ(charger.state_number(), 4);
    EXPECT_STREQ(charger.state(),
                 "l\xc3\xa4"
                 "dt");
    charger.setChargerNumber(1);
    EXPECT_EQ(charger.time(), 7U);
    EXPECT_STREQ(charger.state(), "off");
    int major = 0;
    int minor = 0;
    int patch = 0;
    charger.version(&major, &minor, &patch);
    EXPECT_EQ(major, 3);
    EXPECT_EQ(minor, 2);
    EXPECT_EQ(patch, 1);
}

TEST_F(ChargerTest, AnObjectOfANumberThatDoesNotExistAnswersItsNumberAndZeros)
{
    ScriptedPeer peer = connect();
    peer.notify("charger.infoChanged", info(0));
    peer.sync();
    for (const int number : {-1, 2}) {
        Charger charger;
        charger.setChargerNumber(number);
        EXPECT_EQ(charger.chargerNumber(), number);
        EXPECT_EQ(charger.time(), 0U);
        EXPECT_STREQ(charger.state(), "");
    }
}

TEST_F(ChargerTest, EventsReachOnlyTheObjectsOfTheirNumber)
{
    Events log;
    const LoggingCharger charger0(0, &log);
    const LoggingCharger charger1(1, &log);
    ScriptedPeer peer = connect();
    peer.notify("charger.infoChanged", info(0));
    peer.notify("charger.errorChanged", R"({"chargerNumber":1,"time":9,"message":"hot"})");
    peer.notify("charger.versionChanged", R"({"chargerNumber":0,"major":1,"minor":2,"patch":3})");
    peer.notify("charger.infoChanged", info(1));
    peer.sync();
    com.processEvents();
    EXPECT_EQ(log,
              (Events{"0: info 4294967295 4 l\xc3\xa4"
                      "dt",
                      "1: error 9 hot", "0: version 1.2.3", "1: info 7 5 off"}));
}

} // namespace

// RecordingCom: a Com that writes down its events, and the ways tests wait with it.
#pragma once

#include "ScriptedServer.h"

#include "kor/veltrano/api2/Com.h"
#include "kor/veltrano/api2/shutdown.h"

#include <gtest/gtest.h>

#include <chrono>
#include <string>
#include <thread>
#include <vector>

class RecordingCom : public kor::veltrano::api2::Com
{
public:
    void connectedEvent() override { events.emplace_back("connected"); }
    void disconnectedEvent() override { events.emplace_back("disconnected"); }
    void errorEvent(const char* message) override { events.emplace_back(message); }
    void logEvent(const char* message, int) override { events.emplace_back(message); }

    // Processes events until the condition holds. False where that does not happen in any
    // reasonable time.
    template<class Condition>
    bool processUntil(const Condition& condition)
    {
        const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(20);
        while (!condition()) {
            if (std::chrono::steady_clock::now() > deadline) {
                return false;
            }
            processEvents();
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        }
        return true;
    }

    std::vector<std::string> events;
};

// A server and a Com that knows its address. The library is shut down after each test; events that
// a test before has left undelivered are gone.
class ConnectedTest : public testing::Test
{
public:
    ConnectedTest()
    {
        com.setAddress(server.address().constData());
        com.processEvents();
    }
    ~ConnectedTest() override { kor::veltrano::api2::shutdown(); }

protected:
    // Connects and gives the server's end, with the opening request answered and handled.
    ScriptedPeer connect()
    {
        com.connectToServer(false);
        ScriptedPeer peer = server.acceptAndGreet();
        peer.sync();
        return peer;
    }

    ScriptedServer server;
    RecordingCom com;
};

// Everything at once, which is mostly for the thread and the address sanitizer to look at.
#include "RecordingCom.h"

#include "kor/veltrano/api2/AnalogInputArray.h"
#include "kor/veltrano/api2/Bumper.h"
#include "kor/veltrano/api2/Camera.h"
#include "kor/veltrano/api2/Charger.h"
#include "kor/veltrano/api2/DigitalInputArray.h"
#include "kor/veltrano/api2/LaserRangeFinder.h"
#include "kor/veltrano/api2/OmniDrive.h"
#include "kor/veltrano/api2/PowerManagement.h"

#include <array>
#include <atomic>
#include <cstring>

using namespace kor::veltrano::api2;
using namespace std::chrono_literals;

namespace {

// A robot that sends events as fast as they are taken until it is stopped, and takes the connection
// away now and then.
class StreamingRobot
{
public:
    explicit StreamingRobot(ScriptedServer* ownServer)
        : server(ownServer), thread([this] { run(); })
    {
    }
    ~StreamingRobot()
    {
        isOver = true;
        thread.join();
    }
    StreamingRobot(const StreamingRobot&) = delete;
    StreamingRobot& operator=(const StreamingRobot&) = delete;

private:
    void run()
    {
        while (!isOver) {
            auto peer = server->acceptWithin(100ms);
            if (peer) {
                talk(&*peer);
            }
        }
    }

    void talk(ScriptedPeer* peer) const
    {
        try {
            peer->greet();
            for (int round = 0; round < 300 && !isOver; ++round) {
                sendRound(peer, round);
                peer->sync();
            }
        } catch (const std::runtime_error&) {
            // The library has left, as it does when another connection is asked for.
        }
    }

    static void sendRound(ScriptedPeer* peer, int round)
    {
        // All entries of a message are equal, so that a torn one is seen.
        const QByteArray n = QByteArray::number(round % 7);
        QByteArray eight = n;
        for (int i = 1; i < 8; ++i) {
            eight += "," + n;
        }
        peer->notify("analogInputArray.valuesChanged",
                     ("{\"values\":[" + eight + "]}").constData());
        peer->notify("digitalInputArray.valuesChanged",
                     ("{\"values\":[" + eight + "]}").constData());
        peer->notify("bumper.changed", round % 2 == 0 ? R"({"value":true})" : R"({"value":false})");
        peer->notify("powerManagement.readings",
                     QJsonObject{{"voltage", 1},
                                 {"current", 1},
                                 {"ext_power", true},
                                 {"num_chargers", 1},
                                 {"batteryType", round % 2 == 0 ? "even" : "uneven"},
                                 {"batteryLow", false},
                                 {"batteryLowShutdownCounter", 1}});
        peer->notify(
            "camera.imageReceived",
            QJsonObject{{"format", "jpeg"},
                        {"width", 1},
                        {"height", 1},
                        {"step", 1},
                        {"data", QString::fromLatin1(QByteArray(5000, n.at(0)).toBase64())}});
        peer->notify(
            "laserRangeFinder.scan",
            ("{\"seq\":1,\"stamp\":1,\"angle_min\":0,\"angle_max\":1,\"angle_increment\":1,"
             "\"time_increment\":0,\"scan_time\":0,\"range_min\":0,\"range_max\":1,"
             "\"ranges\":["
             + eight + "],\"intensities\":[]}")
                .constData());
    }

    ScriptedServer* server;
    std::atomic<bool> isOver = false;
    std::thread thread;
};

void readEverything(Com* com, Camera* camera)
{
    std::array<float, 8> reals{};
    AnalogInputArray analog;
    analog.values(reals.data());
    EXPECT_EQ(std::count(reals.begin(), reals.end(), reals[0]), 8);
    std::array<int, 8> integers{};
    DigitalInputArray().values(integers.data());
    EXPECT_EQ(std::count(integers.begin(), integers.end(), integers[0]), 8);
    const std::string type = PowerManagement().batteryType();
    EXPECT_TRUE(type.empty() || type == "even" || type == "uneven") << type;
    LaserRangeFinder scanner(com->id());
    const std::vector<float> ranges = scanner.readings().ranges;
    EXPECT_TRUE(ranges.empty() || std::count(ranges.begin(), ranges.end(), ranges[0]) == 8);
    std::vector<unsigned char> buffer(6000);
    unsigned char* data = buffer.data();
    unsigned int size = 0;
    if (camera->getImage(&data, 6000, nullptr, nullptr, &size)) {
        EXPECT_EQ(size, 5000U);
        EXPECT_EQ(std::count(buffer.begin(), buffer.begin() + 5000, buffer[0]), 5000);
    }
    Charger charger;
    charger.setChargerNumber(1);
    EXPECT_STREQ(charger.state(), "");
    OmniDrive().setVelocity(1, 2, 3);
}

class ThreadsTest : public ConnectedTest
{
};

TEST_F(ThreadsTest, GettersSettersAndObjectsOnFourThreadsWhileEventsStream)
{
    com.setAutoReconnectEnabled(true);
    com.connectToServer(false);
    const StreamingRobot robot(&server);
    ASSERT_TRUE(com.processUntil([this] { return !com.events.empty(); }));

    std::atomic<bool> isOver = false;
    std::vector<std::thread> threads(4);
    for (int i = 0; i < 4; ++i) {
        threads.at(static_cast<std::size_t>(i)) = std::thread([this, &isOver] {
            Camera camera(com.id());
            camera.setJPGDecodingEnabled(false);
            while (!isOver) {
                readEverything(&com, &camera);
                camera.setComId(ComId::null());
                camera.setComId(com.id());
            }
        });
    }
    const auto end = std::chrono::steady_clock::now() + 1500ms;
    EXPECT_TRUE(com.processUntil([end] { return std::chrono::steady_clock::now() > end; }));
    isOver = true;
    for (std::thread& thread : threads) {
        thread.join();
    }
}

TEST_F(ThreadsTest, ConnectionsAndShutdownsOnSeveralThreads)
{
    const StreamingRobot robot(&server);
    std::vector<std::thread> threads(4);
    for (int i = 0; i < 4; ++i) {
        threads.at(static_cast<std::size_t>(i)) = std::thread([this, i] {
            RecordingCom own;
            own.setAddress(server.address().constData());
            for (int round = 0; round < 20; ++round) {
                own.connectToServer(round % 4 == 0);
                OmniDrive().setVelocity(1, 2, 3);
                own.processEvents();
                if (i == 0) {
                    shutdown();
                }
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
}

} // namespace

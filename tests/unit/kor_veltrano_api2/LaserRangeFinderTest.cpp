#include "RecordingCom.h"

#include "kor/veltrano/api2/LaserRangeFinder.h"

using namespace kor::veltrano::api2;

namespace {

struct LoggingScanner : LaserRangeFinder {
    using LaserRangeFinder::LaserRangeFinder;
    void scanEvent(const LaserRangeFinderReadings& scan) override { events.push_back(scan.seq); }

    std::vector<int> events;
};

class LaserRangeFinderTest : public ConnectedTest
{
protected:
    static void sendScan(ScriptedPeer* peer, int sequence)
    {
        const QByteArray params = R"({"seq":)" + QByteArray::number(sequence)
            + R"(,"stamp":2,"angle_min":-1.5,"angle_max":1.5,"angle_increment":0.1,
                 "time_increment":0,"scan_time":0.1,"range_min":0.1,"range_max":30,
                 "ranges":[1,2.5],"intensities":[9]})";
        peer->notify("laserRangeFinder.scan", params.constData());
        peer->sync();
    }
};

TEST_F(LaserRangeFinderTest, TheLastScanIsAnsweredAndStaysAfterDetachingAndLoss)
{
    ScriptedPeer peer = connect();
    LaserRangeFinder scanner(com.id());
    sendScan(&peer, 1);
    sendScan(&peer, 2);
    scanner.setComId(ComId::null());
    peer.close();
    ASSERT_TRUE(com.processUntil([this] { return com.events.size() == 2; }));
    const LaserRangeFinderReadings scan = scanner.readings();
    EXPECT_EQ(scan.seq, 2);
    EXPECT_EQ(scan.angle_increment, 0.1F);
    EXPECT_EQ(scan.ranges, (std::vector<float>{1, 2.5F}));
    EXPECT_EQ(scan.intensities, std::vector<float>{9});
}

TEST_F(LaserRangeFinderTest, OnlyObjectsThatWereBoundGetTheEvent)
{
    ScriptedPeer peer = connect();
    const LoggingScanner bound(com.id());
    const LoggingScanner detached(ComId::null());
    sendScan(&peer, 3);
    const LoggingScanner late(com.id());
    com.processEvents();
    EXPECT_EQ(bound.events, std::vector<int>{3});
    EXPECT_TRUE(detached.events.empty());
    EXPECT_TRUE(late.events.empty());
}

} // namespace

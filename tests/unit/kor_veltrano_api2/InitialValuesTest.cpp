// A program of its own, because what was received once is kept for the rest of the process.
#include "RecordingCom.h"

#include "kor/veltrano/api2/AnalogInputArray.h"
#include "kor/veltrano/api2/Bumper.h"
#include "kor/veltrano/api2/Camera.h"
#include "kor/veltrano/api2/Charger.h"
#include "kor/veltrano/api2/DigitalInputArray.h"
#include "kor/veltrano/api2/DistanceSensorArray.h"
#include "kor/veltrano/api2/LaserRangeFinder.h"
#include "kor/veltrano/api2/PowerManagement.h"

#include <array>

using namespace kor::veltrano::api2;

namespace {

TEST(InitialValues, SensorsAnswerZerosAndFalse)
{
    ASSERT_EQ(AnalogInputArray::numAnalogInputs(), 8U);
    ASSERT_EQ(DigitalInputArray::numDigitalInputs(), 8U);
    std::array<float, 9> reals{};
    std::array<int, 8> integers{};
    reals.fill(7);
    AnalogInputArray().values(reals.data());
    EXPECT_EQ(reals, (std::array<float, 9>{0, 0, 0, 0, 0, 0, 0, 0, 7}));
    reals.fill(7);
    DistanceSensorArray().distances(reals.data());
    EXPECT_EQ(reals, (std::array<float, 9>{}));
    integers.fill(7);
    DigitalInputArray().values(integers.data());
    EXPECT_EQ(integers, (std::array<int, 8>{}));
    EXPECT_FALSE(Bumper().value());
}

TEST(InitialValues, PowerAnswersZerosFalseAndEmptyText)
{
    const PowerManagement power;
    EXPECT_EQ(power.voltage(), 0);
    EXPECT_FALSE(power.ext_power());
    EXPECT_EQ(power.num_chargers(), 0);
    EXPECT_STREQ(power.batteryType(), "");
    EXPECT_FALSE(power.batteryLow());
    EXPECT_EQ(power.batteryLowShutdownCounter(), 0);
}

TEST(InitialValues, ChargerAnswersItsNumberAndElseZerosAndEmptyText)
{
    Charger charger;
    EXPECT_EQ(charger.chargerNumber(), 0);
    charger.setChargerNumber(1);
    EXPECT_EQ(charger.chargerNumber(), 1);
    EXPECT_EQ(charger.time(), 0U);
    EXPECT_EQ(charger.batteryVoltage(), 0);
    EXPECT_EQ(charger.chargingCurrent(), 0);
    EXPECT_EQ(charger.bat1temp(), 0);
    EXPECT_EQ(charger.bat2temp(), 0);
    EXPECT_EQ(charger.state_number(), 0);
    EXPECT_STREQ(charger.state(), "");
    int major = 7;
    int minor = 7;
    int patch = 7;
    charger.version(&major, &minor, &patch);
    EXPECT_EQ(major, 0);
    EXPECT_EQ(minor, 0);
    EXPECT_EQ(patch, 0);
}

TEST(InitialValues, ScannerAnswersAnEmptyScan)
{
    const LaserRangeFinderReadings scan = LaserRangeFinder(ComId::null()).readings();
    EXPECT_EQ(scan.seq, 0);
    EXPECT_EQ(scan.angle_min, 0);
    EXPECT_TRUE(scan.ranges.empty());
    EXPECT_TRUE(scan.intensities.empty());
}

TEST(InitialValues, CameraHasNoImageAndLeavesTheBufferAlone)
{
    Camera camera(ComId::null());
    camera.setJPGDecodingEnabled(false);
    unsigned int sequence = 7;
    EXPECT_FALSE(camera.isNewImageAvailable(&sequence));
    EXPECT_EQ(sequence, 0U);
    std::array<unsigned char, 4> buffer{1, 2, 3, 4};
    unsigned char* data = buffer.data();
    unsigned int first = 7;
    unsigned int second = 7;
    unsigned int third = 7;
    EXPECT_FALSE(camera.getImage(&data, 4, &first, &second, &third));
    EXPECT_EQ(first, 0U);
    EXPECT_EQ(second, 0U);
    EXPECT_EQ(third, 0U);
    EXPECT_EQ(buffer, (std::array<unsigned char, 4>{1, 2, 3, 4}));
}

TEST(InitialValues, TheHandleOfAConnectionDiffersFromNullBeforeItConnects)
{
    const Com com;
    EXPECT_NE(com.id(), ComId::null());
}

} // namespace

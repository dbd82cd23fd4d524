#include "robot/MyCharger.h"
#include "robot/MyPowerManagement.h"

#include <gtest/gtest.h>

namespace kor::veltrano::daemons {
namespace {

TEST(MyChargerTest, AnswersWithItsNumberWithoutARobot)
{
    for (const int number : {0, 1}) {
        EXPECT_TRUE(MyCharger(number).data().contains(
            "\"chargerNumber\": " + QByteArray::number(number) + ","));
    }
}

TEST(MyChargerTest, RendersEveryField)
{
    EXPECT_EQ(MyCharger(1).data(),
              "{\n    \"bat1temp\": 0,\n    \"bat2temp\": 0,\n    \"batteryVoltage\": 0,\n"
              "    \"chargerNumber\": 1,\n    \"chargingCurrent\": 0,\n    \"state\": \"\",\n"
              "    \"state_number\": 0,\n    \"time\": 0,\n    \"version\": \"0.0.0\"\n}\n");
}

TEST(MyPowerManagementTest, RendersEveryField)
{
    EXPECT_EQ(MyPowerManagement().data(),
              "{\n    \"batteryLow\": false,\n    \"batteryLowShutdownCounter\": 0,\n"
              "    \"batteryType\": \"\",\n    \"ext_power\": false,\n    \"num_chargers\": 0,\n"
              "    \"voltage\": 0\n}\n");
}

} // namespace
} // namespace kor::veltrano::daemons

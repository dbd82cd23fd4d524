#include "robot/MyOmniDrive.h"

#include "config/ConfigFile.h"

#include "support/LogFixture.h"

namespace kor::veltrano::daemons {
namespace {

// What goes to the robot is seen end to end; here is what the client and the log get.
class MyOmniDriveTest : public LogFixture
{
protected:
    ~MyOmniDriveTest() override { settings = ConfigFile(); }
};

TEST_F(MyOmniDriveTest, ACommandWithinTheLimitsIsAccepted)
{
    MyOmniDrive drive;
    for (const char* body :
         {"[]", "{}", "[2]", "[-2,2,3]", "[0,0,0,99]", "[\"9\"]", "{\"vx\":9}"}) {
        EXPECT_TRUE(drive.setData(body)) << body;
    }
    EXPECT_TRUE(logLines().isEmpty());
}

TEST_F(MyOmniDriveTest, ACommandBeyondALimitIsRefusedAndLogged)
{
    MyOmniDrive drive;
    EXPECT_FALSE(drive.setData("[0,-2.5,9]"));
    EXPECT_EQ(logLines(),
              QStringList("Error: MyOmniDrive::setData - vy out of bounds : vx = -2.5 "
                          "| limit = 2"));
}

TEST_F(MyOmniDriveTest, ABodyThatIsNoJsonIsRefusedAndLogged)
{
    MyOmniDrive drive;
    EXPECT_FALSE(drive.setData("[1,"));
    EXPECT_EQ(logLines().size(), 1);
    EXPECT_TRUE(logLines().first().startsWith("Error: MyOmniDrive::setData - Invalid JSON: "));
}

TEST_F(MyOmniDriveTest, LimitsAreTakenFromTheSettingsOnce)
{
    settings.values = {{"Omnidrive/vxmax", "0.5"}, {"Omnidrive/vymax", "fast"}};
    MyOmniDrive drive;
    settings.values.clear();
    EXPECT_TRUE(drive.setData("[0.5,0,3]"));
    EXPECT_FALSE(drive.setData("[0.51]"));
    EXPECT_FALSE(drive.setData("[0,0.01]"));
    EXPECT_FALSE(drive.setData("[0,0,3.1]"));
}

} // namespace
} // namespace kor::veltrano::daemons

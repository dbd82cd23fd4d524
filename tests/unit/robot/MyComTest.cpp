#include "robot/MyCom.h"

#include "support/LogFixture.h"

namespace kor::veltrano::daemons {
namespace {

class MyComTest : public LogFixture
{
};

TEST_F(MyComTest, ComingAndGoingOfTheRobotIsLoggedAlways)
{
    MyCom connection;
    connection.connectedEvent();
    connection.disconnectedEvent();
    EXPECT_EQ(logLines(), (QStringList{"Connected", "Disconnected"}));
}

} // namespace
} // namespace kor::veltrano::daemons

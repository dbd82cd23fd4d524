#include "DistanceSensors.h"

#include "Robot.h"
#include "support/worlds.h"

#include <QJsonArray>

#include <cmath>
#include <gtest/gtest.h>

using namespace kor::veltrano::sim;

namespace {

World wallAhead(double distanceFromEdge)
{
    World world;
    const double x = Body::radius + distanceFromEdge;
    world.addWall({{x, -10}, {x, 10}});
    return world;
}

QJsonArray numbers(int count, double value)
{
    QJsonArray array;
    for (int index = 0; index < count; ++index) {
        array.append(value);
    }
    return array;
}

} // namespace

TEST(DistanceSensorsTest, MeasureFromTheEdgeOfTheHull)
{
    const World world = wallAhead(0.1);
    const Robot robot(world);
    const std::vector<double> distances = DistanceSensors(world, robot).distances();
    ASSERT_EQ(distances.size(), 9U);
    EXPECT_NEAR(distances[0], 0.1, 1e-12);
    const double slanted = (Body::radius + 0.1) / std::cos(2 * M_PI / 9) - Body::radius;
    EXPECT_NEAR(distances[1], slanted, 1e-12);
    EXPECT_NEAR(distances[8], slanted, 1e-12);
    EXPECT_DOUBLE_EQ(distances[4], DistanceSensors::rangeLimitM);
}

TEST(DistanceSensorsTest, FollowEachOtherToTheLeft)
{
    World world;
    // Only sensor 2, 80 degrees to the left, looks at this.
    const Point spot = direction(80 * M_PI / 180) * (Body::radius + 0.2);
    world.addCircle({spot, 0.05});
    const Robot robot(world);
    const std::vector<double> distances = DistanceSensors(world, robot).distances();
    for (std::size_t sensor = 0; sensor < distances.size(); ++sensor) {
        EXPECT_NEAR(distances[sensor], sensor == 2 ? 0.15 : DistanceSensors::rangeLimitM, 1e-9)
            << sensor;
    }
}

TEST(DistanceSensorsTest, TurnWithTheRobot)
{
    World world = wallAhead(0.1);
    world.setStart({0, 0, -80 * M_PI / 180});
    const Robot robot(world);
    const std::vector<double> distances = DistanceSensors(world, robot).distances();
    EXPECT_NEAR(distances[2], 0.1, 1e-9);
    EXPECT_DOUBLE_EQ(distances[0], DistanceSensors::rangeLimitM);
}

TEST(DistanceSensorsTest, VoltagesFallWithTheDistance)
{
    double last = 5;
    for (double distance = 0; distance <= DistanceSensors::rangeLimitM; distance += 0.01) {
        const double voltage = DistanceSensors::voltageAt(distance);
        EXPECT_LT(voltage, last);
        EXPECT_GT(voltage, 0.3);
        last = voltage;
    }
}

TEST(DistanceSensorsTest, TellBothTenTimesASecond)
{
    const World world = wallAhead(0.1);
    const Robot robot(world);
    DistanceSensors sensors(world, robot);
    int told = 0;
    for (int step = 0; step < 100; ++step) {
        sensors.step(0.01);
        if (sensors.hasNews()) {
            const std::vector<Event> events = sensors.takeNews();
            ASSERT_EQ(events.size(), 2U);
            EXPECT_EQ(events[0].method.toStdString(), "distanceSensorArray.distancesChanged");
            EXPECT_EQ(events[1].method.toStdString(), "distanceSensorArray.voltagesChanged");
            EXPECT_EQ(events[1].params["values"].toArray().size(), 9);
            ++told;
        }
    }
    EXPECT_EQ(told, 10);
}

TEST(DistanceSensorsTest, HeldDistancesGiveTheirVoltagesUnlessThoseAreHeldToo)
{
    const World world = emptyWorld();
    const Robot robot(world);
    DistanceSensors sensors(world, robot);
    sensors.prepare(QStringLiteral("distances"), numbers(9, 0.2)).apply();
    EXPECT_TRUE(sensors.isHeld());
    EXPECT_DOUBLE_EQ(sensors.distances()[5], 0.2);
    EXPECT_DOUBLE_EQ(sensors.voltages()[5], DistanceSensors::voltageAt(0.2));
    sensors.prepare(QStringLiteral("distanceVoltages"), numbers(9, 1.5)).apply();
    EXPECT_DOUBLE_EQ(sensors.voltages()[5], 1.5);
    sensors.release();
    EXPECT_DOUBLE_EQ(sensors.distances()[5], DistanceSensors::rangeLimitM);
}

TEST(DistanceSensorsTest, TakeNothingButNineNumbers)
{
    const World world = emptyWorld();
    const Robot robot(world);
    DistanceSensors sensors(world, robot);
    const QString key = QStringLiteral("distances");
    EXPECT_EQ(sensors.prepare(key, numbers(8, 1)).reason().toStdString(),
              "distances must be an array of 9 numbers");
    EXPECT_FALSE(sensors.prepare(key, numbers(10, 1)).isAccepted());
    EXPECT_FALSE(sensors.prepare(key, 1).isAccepted());
    QJsonArray wrong = numbers(8, 1);
    wrong.append(QStringLiteral("1"));
    EXPECT_FALSE(sensors.prepare(key, wrong).isAccepted());
}

#include "LaserRangeFinder.h"

#include "JsonShape.h"
#include "Robot.h"
#include "support/worlds.h"

#include <QJsonArray>

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>

using namespace kor::veltrano::sim;

namespace {

constexpr double degree = M_PI / 180;

class Scanned
{
public:
    explicit Scanned(const World& surroundings, quint64 seed = 1)
        : world(surroundings), robot(world), scanner(world, robot, seed)
    {
    }

    // Lets so many scans be taken, and gives the params of the last one.
    QJsonObject scan(int count = 1)
    {
        for (int step = 0; step < 10 * count; ++step) {
            robot.step(0.01);
            scanner.step(0.01);
        }
        return scanner.state().at(0).params;
    }

    std::vector<double> ranges() { return numbers(scan()["ranges"]); }
    std::vector<double> intensities() { return numbers(scan()["intensities"]); }

    static std::vector<double> numbers(const QJsonValue& value)
    {
        const auto found = toNumbers(value, LaserRangeFinder::rays);
        EXPECT_TRUE(found);
        return found.value_or(std::vector<double>(LaserRangeFinder::rays));
    }

    const World world;
    Robot robot;
    LaserRangeFinder scanner;
};

// The angle of a ray against ahead, in rad.
double angleOf(std::size_t ray)
{
    return (-135 + 0.5 * static_cast<double>(ray)) * degree;
}

World wallAhead(double distance)
{
    World world;
    world.addWall({{distance, -50}, {distance, 50}});
    return world;
}

} // namespace

TEST(LaserRangeFinderTest, DescribesItsRays)
{
    Scanned scanned(emptyWorld());
    const QJsonObject scan = scanned.scan();
    EXPECT_NEAR(scan["angle_min"].toDouble(), -135 * degree, 1e-12);
    EXPECT_NEAR(scan["angle_max"].toDouble(), 135 * degree, 1e-12);
    EXPECT_NEAR(scan["angle_increment"].toDouble(), 0.5 * degree, 1e-12);
    EXPECT_NEAR(scan["angle_min"].toDouble() + 540 * scan["angle_increment"].toDouble(),
                scan["angle_max"].toDouble(), 1e-9);
    EXPECT_DOUBLE_EQ(scan["scan_time"].toDouble(), 0.1);
    EXPECT_NEAR(scan["time_increment"].toDouble() * 720, 0.1, 1e-12);
    EXPECT_DOUBLE_EQ(scan["range_min"].toDouble(), 0.02);
    EXPECT_DOUBLE_EQ(scan["range_max"].toDouble(), 5.6);
    EXPECT_EQ(scan["ranges"].toArray().size(), 541);
    EXPECT_EQ(scan["intensities"].toArray().size(), 541);
    EXPECT_EQ(scan.size(), 11);
}

TEST(LaserRangeFinderTest, MeasuresTheDistancesToTheWallsWithinItsNoise)
{
    World world = squareRoom(2);
    world.setStart({0.5, -0.25, 0.6});
    Scanned scanned(world);
    const std::vector<double> ranges = scanned.ranges();
    double squares = 0;
    for (std::size_t ray = 0; ray < ranges.size(); ++ray) {
        const Point beam = direction(0.6 + angleOf(ray));
        // The ray leaves the square through the nearer of the two sides that it goes towards.
        const double acrossX = (std::copysign(2, beam.x) - 0.5) / beam.x;
        const double acrossY = (std::copysign(2, beam.y) + 0.25) / beam.y;
        const double error = ranges[ray] - std::min(acrossX, acrossY);
        ASSERT_LT(std::abs(error), 0.05) << ray;
        squares += error * error;
    }
    const double deviation = std::sqrt(squares / static_cast<double>(ranges.size()));
    EXPECT_GT(deviation, 0.005);
    EXPECT_LT(deviation, 0.01);
}

TEST(LaserRangeFinderTest, RaysGoFromTheRightToTheLeft)
{
    World world;
    world.addCircle({{0, 2}, 0.2});
    Scanned scanned(world);
    const std::vector<double> ranges = scanned.ranges();
    EXPECT_NEAR(ranges[270 + 180], 1.8, 0.05) << "90 degrees to the left";
    EXPECT_DOUBLE_EQ(ranges[270 - 180], 5.6) << "90 degrees to the right";
    EXPECT_DOUBLE_EQ(ranges[270], 5.6) << "ahead";
}

TEST(LaserRangeFinderTest, WhatIsTooFarGivesTheLargestRangeAndNoIntensity)
{
    Scanned scanned(wallAhead(5.5));
    const QJsonObject scan = scanned.scan();
    const std::vector<double> ranges = Scanned::numbers(scan["ranges"]);
    const std::vector<double> intensities = Scanned::numbers(scan["intensities"]);
    for (std::size_t ray = 0; ray < ranges.size(); ++ray) {
        const double angle = std::abs(angleOf(ray));
        const bool isNear = angle < 90 * degree && 5.5 / std::cos(angle) < 5.6;
        EXPECT_EQ(intensities[ray] > 0, isNear) << ray;
        if (!isNear) {
            EXPECT_DOUBLE_EQ(ranges[ray], 5.6) << ray;
        }
    }
}

TEST(LaserRangeFinderTest, NoRangeIsOutsideOfTheLimits)
{
    // Noise alone would carry a tenth of these beyond.
    Scanned scanned(wallAhead(5.59));
    for (int scan = 0; scan < 20; ++scan) {
        for (const double range : scanned.ranges()) {
            ASSERT_LE(range, 5.6);
            ASSERT_GE(range, 0.02);
        }
    }
}

TEST(LaserRangeFinderTest, IntensitiesFallWithTheDistanceAndAreNoRanges)
{
    Scanned scanned(wallAhead(1));
    const std::vector<double> intensities = scanned.intensities();
    const std::vector<double> ranges = scanned.ranges();
    for (std::size_t ray = 270; intensities[ray + 1] > 0; ++ray) {
        EXPECT_GE(intensities[ray], intensities[ray + 1]) << ray;
        EXPECT_GT(intensities[ray], 50);
        EXPECT_GT(std::abs(intensities[ray] - ranges[ray]), 40) << ray;
    }
    EXPECT_GT(intensities[270], 4 * intensities[270 + 140]);
}

TEST(LaserRangeFinderTest, MarksReflectTwiceAsMuch)
{
    World world = wallAhead(2);
    ASSERT_TRUE(world.addMark({{{2, -0.2}, {2, 0.2}}, 0.3, 0.9, {}}));
    Scanned scanned(world);
    const std::vector<double> intensities = scanned.intensities();
    EXPECT_DOUBLE_EQ(intensities[270], LaserRangeFinder::intensityAt(2, true));
    EXPECT_DOUBLE_EQ(intensities[270], 2 * LaserRangeFinder::intensityAt(2, false));
    EXPECT_GT(intensities[270 + 11], 700) << "5.5 degrees: at the mark";
    EXPECT_LT(intensities[270 + 12], 400) << "6 degrees: beside it";
}

TEST(LaserRangeFinderTest, CountsScansAndStampsThemWithSimulatedMilliseconds)
{
    Scanned scanned(emptyWorld());
    EXPECT_EQ(scanned.scan()["seq"].toInt(), 1);
    EXPECT_EQ(scanned.scan()["stamp"].toInt(), 200);
    EXPECT_EQ(scanned.scan(48)["seq"].toInt(), 50);
    EXPECT_EQ(scanned.scanner.state().at(0).params["stamp"].toInt(), 5000);
}

TEST(LaserRangeFinderTest, ThereAreTenScansASecond)
{
    Scanned scanned(emptyWorld());
    int told = 0;
    for (int step = 0; step < 1000; ++step) {
        scanned.scanner.step(0.01);
        told += scanned.scanner.hasNews() ? 1 : 0;
        scanned.scanner.dropNews();
    }
    EXPECT_EQ(told, 100);
}

TEST(LaserRangeFinderTest, ScansAreTheSameForTheSameSeedWhoeverHasAsked)
{
    Scanned asked(squareRoom(2), 5);
    Scanned silent(squareRoom(2), 5);
    Scanned other(squareRoom(2), 6);
    asked.ranges();
    asked.ranges();
    const QJsonObject third = asked.scan();
    EXPECT_EQ(asked.scanner.state().at(0).params, third) << "the same scan once more";
    EXPECT_EQ(silent.scan(3), third);
    EXPECT_NE(other.scan(3), third);
    EXPECT_NE(asked.scan()["ranges"], third["ranges"]) << "each scan has noise of its own";
}

TEST(LaserRangeFinderTest, AScanStaysAsItWasTakenUntilTheNextOne)
{
    Scanned scanned(squareRoom(2));
    const QJsonObject scan = scanned.scan();
    scanned.robot
        .prepare(QStringLiteral("pose"),
                 QJsonObject{{QStringLiteral("x"), 1},
                             {QStringLiteral("y"), 1},
                             {QStringLiteral("phi"), 1}})
        .apply();
    scanned.scanner.step(0.01);
    EXPECT_EQ(scanned.scanner.state().at(0).params, scan);
    EXPECT_NEAR(scanned.ranges()[270], 1 / std::cos(1), 1) << "the new place";
}

TEST(LaserRangeFinderTest, ATurningRobotsScanIsSkewed)
{
    Scanned scanned(wallAhead(2));
    scanned.robot
        .prepare(QStringLiteral("commandedVelocity"),
                 QJsonObject{{QStringLiteral("vx"), 0},
                             {QStringLiteral("vy"), 0},
                             {QStringLiteral("omega"), 2}})
        .apply();
    const std::vector<double> ranges = Scanned::numbers(scanned.scan(4)["ranges"]);
    const double phi = scanned.robot.pose().phi;
    // The last ray shows the present pose, the first one that of 75 ms ago.
    for (const std::size_t ray : {180U, 240U, 270U}) {
        const double age = (540.0 - static_cast<double>(ray)) * 0.1 / 720;
        const double angle = phi - 2 * age + angleOf(ray);
        EXPECT_NEAR(ranges[ray], 2 / std::cos(angle), 0.04) << ray;
    }
}

TEST(LaserRangeFinderTest, AScanIsHeldAsSetUntilItIsReleased)
{
    Scanned scanned(squareRoom(2));
    const QString key = QStringLiteral("laserRangeFinder");
    scanned.scanner
        .prepare(key,
                 QJsonObject{{QStringLiteral("seq"), 7},
                             {QStringLiteral("ranges"), QJsonArray{1, 2.5}},
                             {QStringLiteral("intensities"), QJsonArray()}})
        .apply();
    EXPECT_TRUE(scanned.scanner.isHeld());
    const QJsonObject held = scanned.scan();
    EXPECT_EQ(held["seq"].toInt(), 7);
    EXPECT_EQ(held["ranges"].toArray(), (QJsonArray{1, 2.5}));
    EXPECT_TRUE(held["intensities"].toArray().isEmpty());
    EXPECT_DOUBLE_EQ(held["range_max"].toDouble(), 5.6) << "as it was";
    EXPECT_EQ(scanned.scanner.show()["laserRangeFinder"], QJsonValue(held));
    scanned.scanner.release();
    EXPECT_EQ(scanned.ranges().size(), 541U);
}

TEST(LaserRangeFinderTest, RefusesWhatIsNoScan)
{
    Scanned scanned(emptyWorld());
    const auto reason = [&scanned](const char* member, const QJsonValue& value) {
        return scanned.scanner
            .prepare(QStringLiteral("laserRangeFinder"),
                     QJsonObject{{QString::fromLatin1(member), value}})
            .reason()
            .toStdString();
    };
    EXPECT_EQ(reason("ranges", QJsonArray{1, QStringLiteral("2")}),
              "laserRangeFinder.ranges must be an array of numbers");
    EXPECT_EQ(reason("intensities", 1), "laserRangeFinder.intensities must be an array of numbers");
    EXPECT_EQ(reason("stamp", 0.5), "laserRangeFinder.stamp must be a whole number");
    EXPECT_NE(reason("range", 1), "");
}

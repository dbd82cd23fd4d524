#include "Simulation.h"

#include "support/worlds.h"

#include <QJsonArray>
#include <QJsonDocument>

#include <gtest/gtest.h>
#include <set>

using namespace kor::veltrano::sim;

namespace {

// Everything but the record that is read from the real machine.
QJsonObject shown(const Simulation& simulation)
{
    QJsonObject state = simulation.show();
    state.remove(QStringLiteral("controllerInfo"));
    return state;
}

void drive(Simulation& simulation, int steps)
{
    simulation.command(
        QStringLiteral("omniDrive.setVelocity"),
        {{QStringLiteral("vx"), 0.7}, {QStringLiteral("vy"), 0.2}, {QStringLiteral("omega"), 0.4}});
    for (int step = 0; step < steps; ++step) {
        simulation.step(Simulation::stepS);
    }
}

} // namespace

TEST(SimulationTest, IsTheSameForTheSameSeedAndSteps)
{
    Simulation first(squareRoom(2), 5);
    Simulation second(squareRoom(2), 5);
    drive(first, 1000);
    drive(second, 1000);
    EXPECT_EQ(shown(first), shown(second));
}

TEST(SimulationTest, IsTheSameWhetherOrNotAnybodyListens)
{
    Simulation heard(squareRoom(2), 5);
    Simulation unheard(squareRoom(2), 5);
    for (int second = 0; second < 5; ++second) {
        drive(heard, 100);
        drive(unheard, 100);
        for (const auto& device : heard.devices()) {
            device->takeNews();
        }
        for (const auto& device : unheard.devices()) {
            device->dropNews();
        }
    }
    EXPECT_EQ(shown(heard), shown(unheard));
}

TEST(SimulationTest, DiffersForAnotherSeed)
{
    const Simulation first(squareRoom(2), 5);
    const Simulation second(squareRoom(2), 6);
    EXPECT_NE(shown(first), shown(second));
}

TEST(SimulationTest, KnowsHowMuchTimeHasPassed)
{
    Simulation simulation(emptyWorld(), 1);
    for (int step = 0; step < 250; ++step) {
        simulation.step(Simulation::stepS);
    }
    EXPECT_NEAR(simulation.timeS(), 2.5, 1e-9);
}

TEST(SimulationTest, ShowsEachKeyOfEachDeviceOnce)
{
    const Simulation simulation(emptyWorld(), 1);
    const QJsonObject state = simulation.show();
    std::set<QString> keys;
    for (const auto& device : simulation.devices()) {
        for (const QString& key : device->keys()) {
            EXPECT_TRUE(keys.insert(key).second) << key.toStdString();
            EXPECT_TRUE(state.contains(key)) << key.toStdString();
        }
    }
    EXPECT_EQ(state.size(), static_cast<int>(keys.size()) + 3) << "world, timeS and held";
}

TEST(SimulationTest, SetsEverythingOrNothing)
{
    Simulation simulation(emptyWorld(), 1);
    const QString refusal = simulation.set(
        QJsonDocument::fromJson(R"({"bumper":true,"relays":[1,1],"charger0":{"time":"x"}})")
            .object());
    EXPECT_EQ(refusal.toStdString(), "charger0.time must be a whole number from 0 to 4294967295");
    EXPECT_EQ(simulation.show()["bumper"], QJsonValue(false));
    EXPECT_EQ(simulation.show()["relays"].toArray(), (QJsonArray{0, 0}));
    EXPECT_EQ(simulation.set(QJsonDocument::fromJson(R"({"bumper":true,"relays":[1,1]})").object())
                  .toStdString(),
              "");
    EXPECT_EQ(simulation.show()["bumper"], QJsonValue(true));
    EXPECT_EQ(simulation.show()["relays"].toArray(), (QJsonArray{1, 1}));
}

TEST(SimulationTest, ShowsWhatIsHeldAndReleasesItByNameOrAllAtOnce)
{
    Simulation simulation(emptyWorld(), 1);
    const QJsonObject wish =
        QJsonDocument::fromJson(R"({"bumper":true,"odometry":{"x":1},"powerManagement":{}})")
            .object();
    EXPECT_EQ(simulation.set(wish).toStdString(), "");
    EXPECT_EQ(simulation.show()["held"].toArray(),
              (QJsonArray{QStringLiteral("bumper"), QStringLiteral("odometry"),
                          QStringLiteral("powerManagement")}));
    EXPECT_EQ(simulation.release({QStringLiteral("odometry")}).toStdString(), "");
    EXPECT_EQ(simulation.show()["held"].toArray(),
              (QJsonArray{QStringLiteral("bumper"), QStringLiteral("powerManagement")}));
    EXPECT_EQ(simulation.release({}).toStdString(), "");
    EXPECT_TRUE(simulation.show()["held"].toArray().isEmpty());
}

TEST(SimulationTest, RefusesKeysThatItDoesNotHave)
{
    Simulation simulation(emptyWorld(), 1);
    const std::string refusal = simulation.set({{QStringLiteral("bumpr"), true}}).toStdString();
    EXPECT_EQ(refusal.rfind("there is no bumpr; known are pose, velocity,", 0), 0U) << refusal;
    EXPECT_NE(simulation.release({QStringLiteral("bumpr")}).toStdString(), "");
}

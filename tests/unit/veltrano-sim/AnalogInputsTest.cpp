#include "AnalogInputs.h"

#include <QJsonArray>

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>

using namespace kor::veltrano::sim;

TEST(AnalogInputsTest, StayPlausibleAndWanderSlowly)
{
    for (quint64 seed = 0; seed < 50; ++seed) {
        AnalogInputs inputs(seed);
        std::vector<double> last = inputs.values();
        ASSERT_EQ(last.size(), 8U);
        for (int measurement = 0; measurement < 500; ++measurement) {
            inputs.step(0.2);
            const std::vector<double> present = inputs.values();
            for (std::size_t input = 0; input < present.size(); ++input) {
                ASSERT_GE(present[input], 0) << "seed " << seed;
                ASSERT_LE(present[input], 10) << "seed " << seed;
                ASSERT_LT(std::abs(present[input] - last[input]), 0.1) << "seed " << seed;
            }
            last = present;
        }
    }
}

TEST(AnalogInputsTest, AreTheSameForTheSameSeedAndDifferForAnother)
{
    AnalogInputs first(3);
    AnalogInputs same(3);
    const AnalogInputs other(4);
    EXPECT_NE(first.values(), other.values());
    for (int step = 0; step < 100; ++step) {
        first.step(0.01);
        same.step(0.01);
    }
    EXPECT_EQ(first.values(), same.values());
}

TEST(AnalogInputsTest, AreMeasuredFiveTimesASecond)
{
    AnalogInputs inputs(1);
    int told = 0;
    for (int step = 0; step < 100; ++step) {
        inputs.step(0.01);
        told += inputs.hasNews() ? 1 : 0;
        inputs.dropNews();
    }
    EXPECT_EQ(told, 5);
}

TEST(AnalogInputsTest, AreHeldAsSetUntilTheyAreReleased)
{
    AnalogInputs inputs(1);
    const QString key = QStringLiteral("analogInputs");
    EXPECT_EQ(inputs.prepare(key, QJsonArray{1, 2}).reason().toStdString(),
              "analogInputs must be an array of 8 numbers");
    const QJsonArray wanted{1, 2, 3, 4, 5, 6, 7, 8.5};
    inputs.prepare(key, wanted).apply();
    inputs.step(0.01);
    ASSERT_TRUE(inputs.hasNews());
    EXPECT_EQ(inputs.takeNews().at(0).params["values"].toArray(), wanted);
    inputs.step(10);
    EXPECT_EQ(inputs.values().back(), 8.5);
    inputs.release();
    EXPECT_NE(inputs.values().back(), 8.5);
}

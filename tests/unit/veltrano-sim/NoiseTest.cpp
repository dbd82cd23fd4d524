#include "Noise.h"

#include <cmath>
#include <gtest/gtest.h>

using namespace kor::veltrano::sim;

TEST(NoiseTest, IsTheSameForTheSameSeedAndIndexInWhateverOrder)
{
    const double tenth = scattered(7, 10);
    const double third = scatteredNormally(7, 3);
    EXPECT_NE(scattered(7, 11), tenth);
    EXPECT_NE(scattered(8, 10), tenth);
    EXPECT_NE(scatteredNormally(8, 3), third);
    EXPECT_EQ(scattered(7, 10), tenth);
    EXPECT_EQ(scatteredNormally(7, 3), third);
}

TEST(NoiseTest, IsSpreadEvenlyFromZeroToOne)
{
    constexpr int draws = 20000;
    double sum = 0;
    for (quint64 index = 0; index < draws; ++index) {
        const double number = scattered(1, index);
        ASSERT_GE(number, 0);
        ASSERT_LT(number, 1);
        sum += number;
    }
    EXPECT_NEAR(sum / draws, 0.5, 0.01);
}

TEST(NoiseTest, NormalNoiseHasADeviationOfOneAroundZero)
{
    constexpr int draws = 20000;
    double sum = 0;
    double squares = 0;
    int farOut = 0;
    for (quint64 index = 0; index < draws; ++index) {
        const double number = scatteredNormally(1, index);
        ASSERT_LT(std::abs(number), 9);
        sum += number;
        squares += number * number;
        farOut += std::abs(number) > 2 ? 1 : 0;
    }
    EXPECT_NEAR(sum / draws, 0, 0.03);
    EXPECT_NEAR(squares / draws, 1, 0.05);
    EXPECT_NEAR(farOut / double(draws), 0.0455, 0.01);
}

#include "Picture.h"

#include <gtest/gtest.h>

using namespace kor::veltrano::sim;

namespace {

// The rows of column 1 that are white, as text.
std::string whiteRows(double top, double bottom)
{
    Picture picture(3, 5);
    picture.fillColumn(1, top, bottom, {255, 255, 255});
    std::string rows;
    for (int row = 0; row < picture.height; ++row) {
        EXPECT_EQ(picture.row(row)[0].red + picture.row(row)[2].red, 0) << "only the column";
        if (picture.row(row)[1].red == 255) {
            rows += std::to_string(row);
        }
    }
    return rows;
}

} // namespace

TEST(PictureTest, AColumnIsFilledWhereThePixelsMiddlesAre)
{
    EXPECT_EQ(whiteRows(1, 3), "12");
    EXPECT_EQ(whiteRows(1.4, 3.4), "12");
    EXPECT_EQ(whiteRows(1.6, 3.6), "23");
    EXPECT_EQ(whiteRows(2.6, 3.4), "");
}

TEST(PictureTest, StripsThatMeetNeitherLeaveAGapNorOverlap)
{
    for (double seam = 1; seam < 4; seam += 0.1) {
        EXPECT_EQ(whiteRows(0, seam) + whiteRows(seam, 5), "01234") << seam;
    }
}

TEST(PictureTest, WhatIsOutsideIsLeftOut)
{
    EXPECT_EQ(whiteRows(-1e300, 2), "01");
    EXPECT_EQ(whiteRows(3, 1e300), "34");
    EXPECT_EQ(whiteRows(-9, -2), "");
    EXPECT_EQ(whiteRows(7, 9), "");
    EXPECT_EQ(whiteRows(4, 1), "");
}

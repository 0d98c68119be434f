// SPDX-License-Identifier: Apache-2.0
#include <array>

#include <gtest/gtest.h>
#include <velrzm/velrzm.h>

namespace {

// What the library starts with, taken before any test.
const char kindAtLoad = FromList[0];
const std::array numbersAtLoad = {QV_RC,           entries, LastRecNo, LastAttNo, NbSelectedAttribute,
                                  MultiSaveStarted};

TEST(CurrentResult, HasRoomForTheTextsThatProgramsKnow)
{
    EXPECT_EQ(sizeof FromList, 10U);
    EXPECT_EQ(sizeof SelectedAttribute, 2500U);
    EXPECT_STREQ(RZMCodeLevel(), "RZM 424.1 / QV 340");
}

TEST(CurrentResult, IsEmptyAtLoad)
{
    EXPECT_EQ(kindAtLoad, '\0');
    EXPECT_EQ(numbersAtLoad, (std::array{0, 0, 0, 0, 0, 0}));
}

} // namespace

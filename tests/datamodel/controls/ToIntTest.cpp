#include "datamodel/controls/ToInt.h"

#include "datamodel/controls/Params.h"

#include <gtest/gtest.h>

#include <climits>

namespace Vorin::DataModel::Controls {
namespace {

TEST(ToIntTest, CutsTheFractionOff) {
    EXPECT_EQ(ToInt(0.9), 0);
    EXPECT_EQ(ToInt(-0.9), 0);
    EXPECT_EQ(ToInt(41.5), 41);
    EXPECT_EQ(ToInt(-41.5), -41);
}

TEST(ToIntTest, TheLimitsAreInts) {
    EXPECT_EQ(ToInt(2147483646.9), INT_MAX - 1);
    EXPECT_EQ(ToInt(2147483647.0), INT_MAX);
    EXPECT_EQ(ToInt(-2147483647.9), INT_MIN + 1);
    EXPECT_EQ(ToInt(-2147483648.0), INT_MIN);
}

TEST(ToIntTest, WhatNoIntHoldsIsTheNearestLimit) {
    EXPECT_EQ(ToInt(2147483648.0), INT_MAX);
    EXPECT_EQ(ToInt(1e300), INT_MAX);
    EXPECT_EQ(ToInt(kInfinity), INT_MAX);
    EXPECT_EQ(ToInt(-2147483649.0), INT_MIN);
    EXPECT_EQ(ToInt(-1e300), INT_MIN);
    EXPECT_EQ(ToInt(-kInfinity), INT_MIN);
}

TEST(ToIntTest, NaNIsZero) { EXPECT_EQ(ToInt(kNaN), 0); }

} // namespace
} // namespace Vorin::DataModel::Controls

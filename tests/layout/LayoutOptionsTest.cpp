#include "layout/LayoutOptions.h"

#include "layout/TestCells.h"

#include <cmath>
#include <limits>

#include <gtest/gtest.h>

namespace LayoutTest {
namespace {

class LayoutOptionsTest : public ::testing::Test {
protected:
    CLayoutOptions options;
    CEventCounter changes{options.GetChangedEvent()};
};

TEST_F(LayoutOptionsTest, StartCenteredWithoutPositionFractionOrFlex) {
    EXPECT_EQ(options.GetHAlign(), 1);
    EXPECT_EQ(options.GetVAlign(), 1);
    EXPECT_EQ(options.GetHPosition(), 0);
    EXPECT_EQ(options.GetVPosition(), 0);
    EXPECT_FALSE(options.HasHPosition());
    EXPECT_FALSE(options.HasVPosition());
    EXPECT_EQ(options.GetWidthFraction(), -1.0F);
    EXPECT_EQ(options.GetHeightFraction(), -1.0F);
    EXPECT_EQ(options.GetFlex(), 0.0F);
}

TEST_F(LayoutOptionsTest, EachSetterFiresOnceForAChangeAndNotWithoutOne) {
    options.SetHAlign(0);
    options.SetHAlign(0);
    EXPECT_EQ(changes.Take(), 1);
    options.SetVAlign(2);
    options.SetVAlign(2);
    EXPECT_EQ(changes.Take(), 1);
    options.SetWidthFraction(0.5F);
    options.SetWidthFraction(0.5F);
    EXPECT_EQ(changes.Take(), 1);
    options.SetHeightFraction(0.25F);
    options.SetHeightFraction(0.25F);
    EXPECT_EQ(changes.Take(), 1);
    options.SetFlex(2.0F);
    options.SetFlex(2.0F);
    EXPECT_EQ(changes.Take(), 1);
    EXPECT_EQ(options.GetHAlign(), 0);
    EXPECT_EQ(options.GetVAlign(), 2);
    EXPECT_EQ(options.GetWidthFraction(), 0.5F);
    EXPECT_EQ(options.GetHeightFraction(), 0.25F);
    EXPECT_EQ(options.GetFlex(), 2.0F);
}

TEST_F(LayoutOptionsTest, TheFirstPositionFiresAlsoWhenItIsThe0ThatStandsThere) {
    options.SetHPosition(0);
    EXPECT_EQ(changes.Take(), 1);
    EXPECT_TRUE(options.HasHPosition());
    EXPECT_FALSE(options.HasVPosition());
    options.SetHPosition(0);
    EXPECT_EQ(changes.Take(), 0);
    options.SetVPosition(0);
    options.SetVPosition(7);
    EXPECT_EQ(changes.Take(), 2);
    EXPECT_EQ(options.GetVPosition(), 7);
}

TEST_F(LayoutOptionsTest, NaNIsNotTaken) {
    options.SetFlex(3.0F);
    changes.Take();
    options.SetFlex(std::numeric_limits<float>::quiet_NaN());
    options.SetWidthFraction(std::numeric_limits<float>::quiet_NaN());
    EXPECT_EQ(changes.Take(), 0);
    EXPECT_EQ(options.GetFlex(), 3.0F);
    EXPECT_EQ(options.GetWidthFraction(), -1.0F);
}

TEST_F(LayoutOptionsTest, ACopyHasTheValuesAndNoListeners) {
    options.SetFlex(3.0F);
    options.SetHPosition(4);
    CLayoutOptions copy = options;
    changes.Take();
    copy.SetFlex(1.0F);
    EXPECT_EQ(changes.Take(), 0);
    EXPECT_TRUE(copy.HasHPosition());
    EXPECT_EQ(options.GetFlex(), 3.0F);
}

TEST(LayoutArithmeticTest, FractionsTruncateTowardZeroAndStopAtTheEndsOfAnInt) {
    EXPECT_EQ(TakeFraction(101, 0, 0.5F), 50);
    EXPECT_EQ(TakeFraction(-101, 0, 0.5F), -50);
    EXPECT_EQ(TakeFraction(110, 5, 0.25F), 25);
    EXPECT_EQ(TakeFraction(std::numeric_limits<int>::max(), -1000, 1.0F),
              std::numeric_limits<int>::max());
    EXPECT_EQ(TakeFraction(100, 0, std::numeric_limits<float>::infinity()),
              std::numeric_limits<int>::max());
    EXPECT_EQ(TakeFraction(-100, 0, std::numeric_limits<float>::max()),
              std::numeric_limits<int>::min());
    EXPECT_EQ(TakeFraction(0, 0, std::numeric_limits<float>::infinity()), 0); // 0 * inf is NaN
}

TEST(LayoutArithmeticTest, RoundingIsHalfAwayFromZeroInDoublePrecision) {
    EXPECT_EQ(RoundToInt(2.5F), 3);
    EXPECT_EQ(RoundToInt(-2.5F), -3);
    EXPECT_EQ(RoundToInt(2.4F), 2);
    // As a float the sum with 0.5 would be 1.
    EXPECT_EQ(RoundToInt(std::nextafter(0.5F, 0.0F)), 0);
}

} // namespace
} // namespace LayoutTest

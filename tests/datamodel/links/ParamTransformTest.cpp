#include "datamodel/links/ParamTransform.h"

#include "core/NonFinite.h"
#include "datamodel/links/LinkTestTools.h"

#include <gtest/gtest.h>

namespace Vorin::DataModel::Objects {
namespace {

double Transform(double value, const CParamInfo& source, const CParamInfo& target, bool reversed,
                 bool normalized, const Math::IFunction& function = GetIdentityFunction()) {
    return TransformValue(value, {function, reversed, normalized}, source, target);
}

TEST(ParamTransformTest, AValueGoesThroughTheFunctionAndNotThroughTheRanges) {
    const Math::TFunction<&Library::Square> square;
    EXPECT_EQ(Transform(3.0, MakeInfo(0, 10), MakeInfo(0, 1), false, false, square), 9.0);
}

TEST(ParamTransformTest, AReversedValueIsMirroredWithinTheRangeOfTheTarget) {
    EXPECT_EQ(Transform(0.25, MakeInfo(0, 1), MakeInfo(0, 1), true, false), 0.75);
    EXPECT_EQ(Transform(3.0, MakeInfo(0, 10), MakeInfo(2, 6), true, false), 5.0);
    const Math::TFunction<&Library::Square> square; // 2 + 6 - 9
    EXPECT_EQ(Transform(3.0, MakeInfo(0, 10), MakeInfo(2, 6), true, false, square), -1.0);
}

TEST(ParamTransformTest, APositionGoesFromRangeToRange) {
    EXPECT_EQ(Transform(2.5, MakeInfo(0, 10), MakeInfo(100, 200), false, true), 125.0);
    EXPECT_EQ(Transform(2.5, MakeInfo(0, 10), MakeInfo(100, 200), true, true), 175.0);
    const Math::TFunction<&Library::Square> square; // position 0.5 gives 0.25
    EXPECT_EQ(Transform(5.0, MakeInfo(0, 10), MakeInfo(100, 200), false, true, square), 125.0);
    EXPECT_EQ(Transform(5.0, MakeInfo(0, 10), MakeInfo(100, 200), true, true, square), 175.0);
}

TEST(ParamTransformTest, APositionIsClampedBehindTheFunction) {
    const Math::TFunction<&Library::Exp> exp; // at least 1 for positions
    EXPECT_EQ(Transform(5.0, MakeInfo(0, 10), MakeInfo(100, 200), false, true, exp), 200.0);
    const Math::TFunction<&Library::Negate> negate;
    EXPECT_EQ(Transform(5.0, MakeInfo(0, 10), MakeInfo(100, 200), false, true, negate), 100.0);
    // 1 - (-0.5) is beyond the other end.
    EXPECT_EQ(Transform(5.0, MakeInfo(0, 10), MakeInfo(100, 200), true, true, negate), 200.0);
}

TEST(ParamTransformTest, ThePositionsAreThoseOfTheTypes) {
    // 0.4 of a switch is off; 0.35 of 0 to 10 is 3.5, which an integer rounds up.
    EXPECT_EQ(Transform(0.4, MakeInfo(0, 1, kParamBoolean), MakeInfo(0, 5), false, true), 0.0);
    EXPECT_EQ(Transform(0.35, MakeInfo(0, 1), MakeInfo(0, 10, kParamInteger), false, true), 4.0);
}

TEST(ParamTransformTest, AnEmptySourceRangeStandsAtItsStart) {
    EXPECT_EQ(Transform(5.0, MakeInfo(5, 5), MakeInfo(100, 200), false, true), 100.0);
    EXPECT_EQ(Transform(5.0, MakeInfo(5, 5), MakeInfo(100, 200), true, true), 200.0);
}

TEST(ParamTransformTest, NaNIsThePositionOfTheMaximum) {
    EXPECT_EQ(Transform(kNaN, MakeInfo(0, 10), MakeInfo(100, 200), false, true), 200.0);
    EXPECT_EQ(Transform(kNaN, MakeInfo(0, 10), MakeInfo(100, 200), true, true), 200.0);
    EXPECT_EQ(Transform(kInfinity, MakeInfo(0, 10), MakeInfo(100, 200), false, true), 200.0);
    EXPECT_EQ(Transform(-kInfinity, MakeInfo(0, 10), MakeInfo(100, 200), false, true), 100.0);
}

} // namespace
} // namespace Vorin::DataModel::Objects

#include "math/LUTFunction.h"

#include <gtest/gtest.h>

#include <memory>

namespace Vorin::Math {
namespace {

using LinearFunction = TLUTFunction<TLookupTable<float, TLinearInterpolator<float, float>>>;

TEST(LUTFunctionTest, ReadsItsTable) {
    LinearFunction function;
    function.GetTable().SetRange(0, 2);
    function.GetTable().SetCount(2);
    function.GetTable().GetValues()[0] = 1.0F;
    function.GetTable().GetValues()[1] = 5.0F;
    EXPECT_EQ(function.Evaluate(0.5), 2.0);
    EXPECT_EQ(function.Evaluate(-1.0), 1.0);
    EXPECT_EQ(function.Evaluate(1e300), 5.0);
}

TEST(LUTFunctionTest, APositionOfAFloatTableIsRoundedToFloatFirst) {
    LinearFunction function;
    function.GetTable().SetRange(0, 1);
    function.GetTable().SetCount(2);
    function.GetTable().GetValues()[1] = 1.0F;
    EXPECT_EQ(function.Evaluate(0.1), static_cast<double>(0.1F));
}

TEST(LUTFunctionTest, ACloneHasItsOwnTable) {
    LinearFunction function;
    function.GetTable().SetCount(1);
    function.GetTable().GetValues()[0] = 3.0F;
    const std::unique_ptr<IFunction> clone(function.Clone());
    function.GetTable().GetValues()[0] = 4.0F;
    EXPECT_EQ(clone->Evaluate(0.0), 3.0);
    EXPECT_STREQ(clone->GetType(), function.GetType());
}

} // namespace
} // namespace Vorin::Math

#include "math/Constant.h"

#include <gtest/gtest.h>

#include <memory>

namespace Vorin::Math {
namespace {

TEST(ConstantTest, ANewOneIsZero) {
    EXPECT_EQ(CConstant().Evaluate(), 0.0);
    EXPECT_EQ(CConstantFunction().Evaluate(1.0), 0.0);
    EXPECT_EQ(CConstantBinaryFunction().Evaluate(1.0, 2.0), 0.0);
}

TEST(ConstantTest, GivesItsValueWhateverTheArguments) {
    CConstant constant(1.5);
    CConstantFunction function(2.5);
    CConstantBinaryFunction binary(3.5);
    EXPECT_EQ(constant.Evaluate(), 1.5);
    EXPECT_EQ(function.Evaluate(-9.0), 2.5);
    EXPECT_EQ(binary.Evaluate(-9.0, 9.0), 3.5);

    constant.SetValue(-1.0);
    function.SetValue(-2.0);
    binary.SetValue(-3.0);
    EXPECT_EQ(constant.GetValue(), -1.0);
    EXPECT_EQ(constant.Evaluate(), -1.0);
    EXPECT_EQ(function.GetValue(), -2.0);
    EXPECT_EQ(function.Evaluate(0.0), -2.0);
    EXPECT_EQ(binary.GetValue(), -3.0);
    EXPECT_EQ(binary.Evaluate(0.0, 0.0), -3.0);
}

TEST(ConstantTest, ACloneDoesNotFollowTheOriginal) {
    CConstantFunction original(1.0);
    const std::unique_ptr<IFunction> clone(original.Clone());
    original.SetValue(2.0);
    EXPECT_EQ(clone->Evaluate(0.0), 1.0);
    EXPECT_STREQ(clone->GetType(), "{72E2E475-5248-41cb-BBE2-9E1F1E4BAF30}");
}

} // namespace
} // namespace Vorin::Math

#include "datamodel/objects/ConstantToCaptureParamAdapter.h"

#include "datamodel/objects/ObjectsTestTools.h"

#include <gtest/gtest.h>

namespace Vorin::DataModel::Objects {
namespace {

using Testing::MakeInfo;

TEST(ConstantToCaptureParamAdapterTest, TheValueIsWhatTheConstantIsNowAlsoOutOfRange) {
    Math::CConstant constant(0.5);
    const CConstantToCaptureParamAdapter param(MakeInfo(0.0, 1.0, 0.25), &constant, Core::kDontOwn);
    EXPECT_EQ(param.GetValue(), 0.5);
    EXPECT_STREQ(param.GetInfo().GetUnit(), "dB");
    constant.SetValue(7.0);
    EXPECT_EQ(param.GetValue(), 7.0);
}

TEST(ConstantToCaptureParamAdapterTest, OwnsItsConstantWhenToldSo) {
    CConstantToCaptureParamAdapter param(MakeInfo(0.0, 1.0), new Math::CConstant(2.0), Core::kOwn);
    IConstCaptureParam& object = param;
    EXPECT_EQ(object.GetValue(), 2.0);
    EXPECT_FALSE(object.IsCaptured());
}

TEST(ConstantToCaptureParamAdapterTest, WithoutAConstantItIsZero) {
    const CConstantToCaptureParamAdapter param(MakeInfo(1.0, 2.0, 1.5), nullptr, Core::kOwn);
    EXPECT_EQ(param.GetValue(), 0.0);
}

} // namespace
} // namespace Vorin::DataModel::Objects

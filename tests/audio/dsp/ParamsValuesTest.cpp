#include "audio/dsp/ParamsValues.h"

#include "audio/dsp/Mux.h"
#include "containers/DynamicCollection.h"
#include "core/Dirty.h"

#include <gtest/gtest.h>

namespace Vorin::Audio::DSP {
namespace {

TEST(ParamsValuesTest, StartsWithZerosOrACopy) {
    const double source[] = {1.5, -2.5};
    CParamsValues copied(2, source);
    const CParamsValues zeros(3);
    EXPECT_EQ(copied.GetCount(), 2);
    EXPECT_EQ(copied.GetValue(0), 1.5);
    EXPECT_EQ(copied.GetValue(1), -2.5);
    copied.SetValue(1, 4.0);
    EXPECT_EQ(copied.GetValue(1), 4.0);
    EXPECT_EQ(source[1], -2.5);
    EXPECT_EQ(zeros.GetCount(), 3);
    EXPECT_EQ(zeros.GetValue(2), 0.0);
    EXPECT_EQ(CParamsValues().GetCount(), 0);
    EXPECT_EQ(CParamsValues(-1).GetCount(), 0);
}

TEST(DynamicParamsValuesTest, KeepsItsValuesWhenItGrows) {
    CDynamicParamsValues values(1);
    values.SetValue(0, 3.0);
    values.SetCount(3);
    EXPECT_EQ(values.GetCount(), 3);
    EXPECT_EQ(values.GetValue(0), 3.0);
    EXPECT_EQ(values.GetValue(2), 0.0);
    values.SetCount(-2);
    EXPECT_EQ(values.GetCount(), 0);
}

TEST(ConstParamsValuesMuxTest, ReadsTheFirstSourceAndThenTheSecond) {
    const double source[] = {1, 2, 3};
    const CParamsValues first(2, source);
    CDynamicParamsValues second(1);
    second.SetValue(0, 9.0);
    const CConstParamsValuesMux mux(first, second);
    EXPECT_EQ(mux.GetCount(), 3);
    EXPECT_EQ(mux.GetValue(0), 1.0);
    EXPECT_EQ(mux.GetValue(1), 2.0);
    EXPECT_EQ(mux.GetValue(2), 9.0);
    // It holds nothing itself: what the sources become is what it reads.
    second.SetCount(2);
    second.SetValue(1, 8.0);
    EXPECT_EQ(mux.GetCount(), 4);
    EXPECT_EQ(mux.GetValue(3), 8.0);
}

TEST(ConstParamsValuesMuxTest, ReadsTheSecondSourceAloneWhenTheFirstIsEmpty) {
    const double source[] = {7};
    const CParamsValues none;
    const CParamsValues one(1, source);
    EXPECT_EQ(CConstParamsValuesMux(none, one).GetValue(0), 7.0);
    EXPECT_EQ(CConstParamsValuesMux(one, none).GetValue(0), 7.0);
    EXPECT_EQ(CConstParamsValuesMux(none, none).GetCount(), 0);
}

TEST(VectorMuxTest, ReachesTheObjectsOfBothLists) {
    using CMarks = CoreUtilities::TDynamicCollection<Core::CDirty, Core::IDirty>;
    CMarks first;
    CMarks second;
    first.SetCount(1);
    second.SetCount(2);
    TVectorMux<Core::IDirty> mux(first, second);
    const TConstVectorMux<Core::IDirty> constMux(first, second);
    ASSERT_EQ(mux.GetCount(), 3);
    ASSERT_EQ(constMux.GetCount(), 3);
    mux.Get(2).SetDirty();
    EXPECT_FALSE(first.At(0).IsDirty());
    EXPECT_FALSE(second.At(0).IsDirty());
    EXPECT_TRUE(second.At(1).IsDirty());
    EXPECT_EQ(&constMux.Get(0), &first.Get(0));
    EXPECT_EQ(&constMux.Get(1), &second.Get(0));
}

} // namespace
} // namespace Vorin::Audio::DSP

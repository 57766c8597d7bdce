#include "audio/plugin/InputParamsRamp.h"

#include "audio/dsp/TestMonoFilter.h"

#include <gtest/gtest.h>

namespace Vorin::Audio::Plugin {
namespace {

class InputParamsRampTest : public ::testing::Test {
protected:
    InputParamsRampTest() {
        const DSP::CTestMonoFilter filter;
        ramp.Init(filter, CInputObjects(filter));
    }

    double AtStart(int index) const {
        return ramp.GetAtStart().GetVariation(0).GetInputParams().GetValue(index);
    }
    double AtEnd(int index) const {
        return ramp.GetAtEnd().GetVariation(0).GetInputParams().GetValue(index);
    }

    CInputParamsRamp ramp;
};

TEST_F(InputParamsRampTest, BeginsWithTheDefaultsAtBothEnds) {
    EXPECT_EQ(ramp.GetParams().GetCount(), 2);
    EXPECT_EQ(AtStart(0), 2.0);
    EXPECT_EQ(AtEnd(0), 2.0);
    EXPECT_EQ(AtStart(1), 0.5);
    EXPECT_EQ(AtEnd(1), 0.5);
    EXPECT_EQ(ramp.GetAtStart().GetCount(), 1);
    EXPECT_EQ(ramp.GetAtEnd().GetCount(), 1);
}

TEST_F(InputParamsRampTest, TakesANewValueAtItsEnd) {
    ramp.SetParam(0, 7.0);
    EXPECT_EQ(AtStart(0), 2.0);
    EXPECT_EQ(AtEnd(0), 7.0);
    EXPECT_EQ(ramp.GetParams().GetValue(0), 7.0);
}

TEST_F(InputParamsRampTest, LetsItsEndBecomeTheNextStart) {
    ramp.SetParam(0, 7.0);
    ramp.SetParam(1, 8.0);
    ramp.Finish();
    EXPECT_EQ(AtStart(0), 7.0);
    EXPECT_EQ(AtStart(1), 8.0);
    ramp.SetParam(1, 9.0);
    EXPECT_EQ(AtStart(1), 8.0);
}

} // namespace
} // namespace Vorin::Audio::Plugin

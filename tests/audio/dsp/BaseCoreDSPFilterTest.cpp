#include "audio/dsp/BaseCoreDSPFilter.h"

#include "audio/dsp/FilterTestKit.h"
#include "audio/dsp/TestMonoFilter.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>

namespace Vorin::Audio::DSP {

// The count of silent frames cannot be led to its end within a test's time. An explicit
// instantiation may name a private member, so this brings the count there.
template <class Tag, typename Tag::Member pointer>
struct TPrivateMember {
    friend typename Tag::Member PointerOf(Tag) { return pointer; }
};

struct CSilentFrames {
    using Member = std::int64_t CBaseCoreDSPFilter::*;
    friend Member PointerOf(CSilentFrames);
};

template struct TPrivateMember<CSilentFrames, &CBaseCoreDSPFilter::silentFrames>;

namespace {

class BaseCoreDSPFilterTest : public ::testing::Test {
protected:
    std::string TakeCalls() {
        std::string calls;
        calls.swap(scope.calls);
        return calls;
    }

    void Process(int frames, const IConstInputRamp* ramp = nullptr) {
        CTestChannels inputs(1, frames, 1.0F);
        CTestChannels outputs(1, frames);
        filter.Process(MakeRecord(inputs, outputs, frames, ramp));
    }

    bool ProcessSilence(int frames, const IConstInputRamp* ramp = nullptr) {
        CTestChannels inputs(1, frames, 1.0F); // what stands there is not looked at
        CTestChannels outputs(1, frames, 9.0F);
        const bool sounds = filter.ProcessSilence(MakeRecord(inputs, outputs, frames, ramp));
        lastOutput = outputs.Samples(0);
        return sounds;
    }

    CTestMonoFilter scope;
    IFilter& filter = scope;
    std::vector<float> lastOutput;
};

TEST_F(BaseCoreDSPFilterTest, InitsBeforeItAppliesDefaultsAndResetsLast) {
    filter.Init({.applyDefaults = true}, 48000.0);
    EXPECT_EQ(TakeCalls(), "init;params0(2,0.5);reset;");
    EXPECT_EQ(scope.GetRate(), 48000.0);
}

TEST_F(BaseCoreDSPFilterTest, KeepsItsValuesWhenDefaultsAreNotAskedFor) {
    filter.Init({}, 44100.0);
    EXPECT_EQ(TakeCalls(), "init;reset;");
}

TEST_F(BaseCoreDSPFilterTest, TakesInputValuesOfOrderZeroAlone) {
    filter.SetInputParams(CTestVariations{CTestValues{3, 4}, CTestValues{5, 6}});
    EXPECT_EQ(TakeCalls(), "params0(3,4);");
    filter.SetInputParams(CTestVariations{});
    EXPECT_EQ(TakeCalls(), "");
}

TEST_F(BaseCoreDSPFilterTest, ProcessesAndThenSaysThatItIsDone) {
    Process(5);
    EXPECT_EQ(TakeCalls(), "process5;done1;");
}

TEST_F(BaseCoreDSPFilterTest, ProcessesOnlyWithBothInputsAndOutputs) {
    CTestChannels channels(1, 4);
    filter.Process({.inputs = &channels, .outputs = nullptr, .frames = 4});
    filter.Process({.inputs = nullptr, .outputs = &channels, .frames = 4});
    EXPECT_EQ(TakeCalls(), "done1;done-1;");
}

TEST_F(BaseCoreDSPFilterTest, LeavesTheRampToTheProcessing) {
    const CTestRamp ramp({CTestValues{1, 0}}, {CTestValues{3, 4}});
    Process(2, &ramp);
    EXPECT_EQ(TakeCalls(), "process2;params0(1,0);params0(3,4);done1;");
}

TEST_F(BaseCoreDSPFilterTest, TakesTheSilentPathAtOnceWithoutATail) {
    filter.Init({}, 44100.0);
    TakeCalls();
    EXPECT_FALSE(ProcessSilence(3));
    EXPECT_EQ(TakeCalls(), "silence3;");
    EXPECT_EQ(lastOutput, (std::vector<float>{0, 0, 0}));
}

TEST_F(BaseCoreDSPFilterTest, ProcessesTheTailUpToAndWithTheCallThatReachesItsEnd) {
    scope.tail = 10;
    scope.offset = 0.5;
    EXPECT_TRUE(ProcessSilence(4));
    EXPECT_TRUE(ProcessSilence(5));
    EXPECT_TRUE(ProcessSilence(6)); // 9 of 10 so far
    EXPECT_EQ(lastOutput, std::vector<float>(6, 0.5F));
    EXPECT_FALSE(ProcessSilence(1));
    EXPECT_EQ(TakeCalls(), "process4;done1;process5;done1;process6;done1;silence1;");
}

TEST_F(BaseCoreDSPFilterTest, TakesTheSilentPathAsSoonAsTheTailIsReached) {
    scope.tail = 4;
    EXPECT_TRUE(ProcessSilence(4));
    EXPECT_FALSE(ProcessSilence(4));
}

TEST_F(BaseCoreDSPFilterTest, BeginsTheTailAnewAfterEachBlockWithSound) {
    scope.tail = 4;
    ProcessSilence(4);
    EXPECT_FALSE(ProcessSilence(4));
    Process(1);
    EXPECT_TRUE(ProcessSilence(4));
    EXPECT_FALSE(ProcessSilence(4));
}

TEST_F(BaseCoreDSPFilterTest, BeginsTheTailAnewAfterInit) {
    scope.tail = 4;
    ProcessSilence(4);
    EXPECT_FALSE(ProcessSilence(1));
    filter.Init({}, 44100.0);
    EXPECT_TRUE(ProcessSilence(1));
}

TEST_F(BaseCoreDSPFilterTest, ReadsSilentInputsInTheTailWhateverTheRecordHolds) {
    scope.tail = 10;
    scope.gain = 3.0;
    ProcessSilence(4);
    EXPECT_EQ(lastOutput, (std::vector<float>{0, 0, 0, 0}));
    EXPECT_EQ(scope.sum, 0.0);
}

TEST_F(BaseCoreDSPFilterTest, NeverTakesTheSilentPathWhenItIsActiveInSilence) {
    scope.isActiveWhenSilent = true;
    for (int i = 0; i < 3; ++i) {
        EXPECT_TRUE(ProcessSilence(2));
    }
    EXPECT_EQ(TakeCalls(), "process2;done1;process2;done1;process2;done1;");
}

TEST_F(BaseCoreDSPFilterTest, AppliesBothEndsOfARampAroundASilentBlock) {
    const CTestRamp ramp({CTestValues{1, 0}}, {CTestValues{3, 4}});
    EXPECT_FALSE(ProcessSilence(2, &ramp));
    EXPECT_EQ(TakeCalls(), "params0(1,0);silence2;params0(3,4);");
}

TEST_F(BaseCoreDSPFilterTest, GivesNothingInSilenceWithoutOutputs) {
    scope.tail = 10;
    CTestChannels inputs(1, 4);
    EXPECT_FALSE(filter.ProcessSilence({.inputs = &inputs, .outputs = nullptr, .frames = 4}));
    EXPECT_EQ(TakeCalls(), "");
}

TEST_F(BaseCoreDSPFilterTest, StopsCountingSilentFramesWhereTheSumWouldPassTheLargestNumber) {
    constexpr std::int64_t largest = std::numeric_limits<std::int64_t>::max();
    std::int64_t& silentFrames = scope.*PointerOf(CSilentFrames());
    silentFrames = largest - 10;
    ProcessSilence(4);
    EXPECT_EQ(silentFrames, largest - 6);
    ProcessSilence(7);
    EXPECT_EQ(silentFrames, largest - 6);
    ProcessSilence(6);
    EXPECT_EQ(silentFrames, largest);
    EXPECT_FALSE(ProcessSilence(1));
    EXPECT_EQ(silentFrames, largest);
}

TEST_F(BaseCoreDSPFilterTest, DoesNotCountNegativeFrames) {
    std::int64_t& silentFrames = scope.*PointerOf(CSilentFrames());
    CTestChannels channels(1, 1);
    filter.ProcessSilence(MakeRecord(channels, channels, std::numeric_limits<int>::min()));
    filter.ProcessSilence(MakeRecord(channels, channels, -1));
    EXPECT_EQ(silentFrames, 0);
}

TEST_F(BaseCoreDSPFilterTest, ResetsByTheHook) {
    filter.Reset();
    EXPECT_EQ(TakeCalls(), "reset;");
}

TEST_F(BaseCoreDSPFilterTest, UpdatesTheOutputParametersBeforeTheOtherOutputs) {
    filter.UpdateOutputs();
    EXPECT_EQ(TakeCalls(), "updateParams;update;");
}

/// A filter with two configurations beside its default, which declares nothing else.
class CPlainFilter : public CBaseCoreDSPFilter {
public:
    CPlainFilter() {
        info.AddConfiguration(CIOConfiguration(1, 1));
        info.AddConfiguration(CIOConfiguration(4, 3));
    }
    IFilter* Clone() const override { return new CPlainFilter(*this); }
    const IConstFilterProductInfo& GetProductInfo() const override {
        return CTestMonoFilter().GetProductInfo();
    }
    const IProcessInfo& GetIOConfigurations() const override { return info; }

    CProcessInfo info{2, 2};
};

TEST(ConfigurationTest, IsTheDefaultForMinusOneAndBeyondTheList) {
    CPlainFilter plain;
    IFilter& filter = plain;
    EXPECT_EQ(filter.GetIOConfiguration().GetInputInfos().GetCount(), 2);
    for (const auto& [index, inputs] : {std::pair(-1, 2), {0, 1}, {1, 4}, {2, 2}, {-1, 2}}) {
        filter.Init({.configuration = index}, 44100.0);
        EXPECT_EQ(filter.GetIOConfiguration().GetInputInfos().GetCount(), inputs) << index;
    }
}

TEST(UndeclaredTest, IsEmptyAndSharedByAllFilters) {
    CPlainFilter one;
    CPlainFilter two;
    IFilter& filter = one;
    IFilter& other = two;
    filter.Init({.applyDefaults = true}, 44100.0);
    EXPECT_EQ(filter.GetInputParamInfos().GetCount(), 0);
    EXPECT_EQ(filter.GetInputStringInfos().GetCount(), 0);
    EXPECT_EQ(filter.GetInputCurveInfos().GetCount(), 0);
    EXPECT_EQ(filter.GetInputSurfaceInfos().GetCount(), 0);
    EXPECT_EQ(filter.GetInputPropertyInfos().GetCount(), 0);
    EXPECT_EQ(filter.GetOutputParamInfos().GetCount(), 0);
    EXPECT_EQ(filter.GetOutputParamValues().GetCount(), 0);
    EXPECT_EQ(filter.GetPrivateOutputParamInfos().GetCount(), 0);
    EXPECT_EQ(filter.GetPrivateOutputParamValues().GetCount(), 0);
    EXPECT_EQ(filter.GetOutputStringInfos().GetCount(), 0);
    EXPECT_EQ(filter.GetOutputStrings().GetCount(), 0);
    EXPECT_EQ(filter.GetOutputStringChanges().GetCount(), 0);
    EXPECT_EQ(filter.GetOutputCurves().GetCount(), 0);
    EXPECT_EQ(filter.GetOutputCurveChanges().GetCount(), 0);
    EXPECT_EQ(filter.GetOutputSurfaces().GetCount(), 0);
    EXPECT_EQ(filter.GetOutputSurfaceChanges().GetCount(), 0);
    EXPECT_EQ(filter.GetOutputProperties().GetCount(), 0);
    EXPECT_EQ(filter.GetOutputPropertyChanges().GetCount(), 0);
    EXPECT_EQ(filter.GetLegacyPresets().GetCount(), 0);
    EXPECT_EQ(&filter.GetOutputCurves(), &other.GetOutputCurves());
    EXPECT_EQ(&filter.GetOutputParamValues(), &other.GetOutputParamValues());
    EXPECT_EQ(filter.GetOutputDataSync(), nullptr);
    EXPECT_EQ(filter.GetTailSamples(), 0);
    EXPECT_EQ(filter.GetLatency(), 0);
}

TEST(UndeclaredTest, HasHooksThatDoNothing) {
    CPlainFilter plain;
    IFilter& filter = plain;
    CTestChannels inputs(2, 4, 1.0F);
    CTestChannels outputs(2, 4, 5.0F);
    filter.Process(MakeRecord(inputs, outputs, 4));
    filter.SetInputParams(CTestVariations{CTestValues{}});
    filter.UpdateOutputs();
    filter.PublishOutputs();
    filter.Uninit();
    EXPECT_EQ(outputs.Samples(1), std::vector<float>(4, 5.0F));
    EXPECT_FALSE(filter.ProcessSilence(MakeRecord(inputs, outputs, 3)));
    EXPECT_EQ(outputs.Samples(1), (std::vector<float>{0, 0, 0, 5}));
}

} // namespace
} // namespace Vorin::Audio::DSP

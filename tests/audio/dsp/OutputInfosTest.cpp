#include "audio/dsp/OutputInfos.h"

#include "audio/dsp/TestMonoFilter.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace Vorin::Audio::DSP {
namespace {

using namespace DataModel::Objects;

using CParams = CoreUtilities::TDynamicCollection<CParamInfo, IConstParamInfo>;
using CStereoParams = TMonoToStereoInfo<CParamInfo, IConstParamInfo>;
using CMidSideParams = TStereoToMidSideInfo<CParamInfo, IConstParamInfo>;

CParams MakeParams(const std::vector<const char*>& names) {
    CParams params;
    for (const char* name : names) {
        params.Add(CParamInfo(kParamReal, name, "dB", "words", nullptr, nullptr, -6.0, 6.0, 1.0));
    }
    return params;
}

template <class Infos>
std::vector<std::string> NamesOf(const Infos& infos) {
    std::vector<std::string> names;
    for (int i = 0; i < infos.GetCount(); ++i) {
        names.emplace_back(infos.Get(i).GetName());
    }
    return names;
}

using Names = std::vector<std::string>;

TEST(MonoToStereoInfoTest, DoublesAllElementsWithTheNamesOfTheChannels) {
    EXPECT_EQ(NamesOf(CStereoParams(MakeParams({"A", "B"}))),
              (Names{"A (L)", "B (L)", "A (R)", "B (R)"}));
}

TEST(MonoToStereoInfoTest, ShowsElementsOutsideTheRangeOnce) {
    const CParams mono = MakeParams({"A", "B", "C", "D"});
    EXPECT_EQ(NamesOf(CStereoParams(mono, 1, 2)),
              (Names{"A", "B (L)", "C (L)", "B (R)", "C (R)", "D"}));
    EXPECT_EQ(NamesOf(CStereoParams(mono, 2)),
              (Names{"A", "B", "C (L)", "D (L)", "C (R)", "D (R)"}));
    EXPECT_EQ(NamesOf(CStereoParams(mono, 0, 0)), (Names{"A (L)", "A (R)", "B", "C", "D"}));
}

TEST(MonoToStereoInfoTest, HasNoElementsForNone) {
    EXPECT_EQ(CStereoParams(MakeParams({})).GetCount(), 0);
}

TEST(MonoToStereoInfoTest, CopiesEverythingButTheName) {
    const CStereoParams stereo(MakeParams({"A"}));
    EXPECT_STREQ(stereo.Get(1).GetUnit(), "dB");
    EXPECT_STREQ(stereo.Get(1).GetComment(), "words");
    EXPECT_EQ(stereo.Get(1).GetMin(), -6.0);
    EXPECT_EQ(stereo.Get(1).GetMax(), 6.0);
    EXPECT_EQ(stereo.Get(1).GetDefault(), 1.0);
}

TEST(StereoToMidSideInfoTest, ReplacesTheChannelInTheName) {
    EXPECT_EQ(NamesOf(CMidSideParams(MakeParams({"Waveform (L)", "Waveform (R)"}), "(1)", "(2)")),
              (Names{"Waveform (1)", "Waveform (2)"}));
}

TEST(StereoToMidSideInfoTest, KeepsANameWithoutAChannel) {
    EXPECT_EQ(NamesOf(CMidSideParams(MakeParams({"Delay", "", "(l)", "L"}), "(1)", "(2)")),
              (Names{"Delay", "", "(l)", "L"}));
}

TEST(StereoToMidSideInfoTest, ReplacesTheChannelWhereverItStands) {
    EXPECT_EQ(NamesOf(CMidSideParams(MakeParams({"(R) to (L) to (R)", "x(L)y"}), "<Mid>", "S")),
              (Names{"S to <Mid> to S", "x<Mid>y"}));
}

TEST(OutputInfosTest, AdaptsAllSixGroupsOfAFilter) {
    const CTestMonoFilter filter;
    const TOutputInfos<TMonoToStereoInfo> infos(filter);
    EXPECT_EQ(NamesOf(infos.params), (Names{"Sum (L)", "Sum (R)"}));
    EXPECT_EQ(NamesOf(infos.privateParams), (Names{"Hidden (L)", "Hidden (R)"}));
    EXPECT_EQ(NamesOf(infos.strings), (Names{"Note (L)", "Note (R)"}));
    EXPECT_EQ(NamesOf(infos.curves), (Names{"Shape (L)", "Shape (R)"}));
    EXPECT_EQ(NamesOf(infos.surfaces), (Names{"Field (L)", "Field (R)"}));
    EXPECT_EQ(NamesOf(infos.properties), (Names{"Extra (L)", "Extra (R)"}));
}

} // namespace
} // namespace Vorin::Audio::DSP

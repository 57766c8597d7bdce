#include "filters/OscilloscopeInfos.h"

#include "filters/Oscilloscope.h"

#include <gtest/gtest.h>

#include <string>

namespace PluginsFilters {
namespace {

using namespace Vorin::Audio::DSP;
using namespace Vorin::DataModel::Objects;
using Vorin::Containers::CCharString;

struct CExpectedParam {
    const char* name;
    int type;
    const char* unit;
    double min;
    double max;
    const char* textOfMin;
    const char* textOfMax;
};

std::string TextOf(const IConstParamInfo& info, double value) {
    CCharString text;
    info.GetValueToText().ValueToText(value, text);
    return text.Get();
}

TEST(OscilloscopeInfosTest, DeclaresItsFiveParameters) {
    const std::vector<CExpectedParam> expected{
        {"View Mode", 1, "", 0.0, 2.0, "Flow", "Trigger"},
        {"Sync", 3, "", 0.0, 1.0, "0", "1"},
        {"Delay", 2, "ms", 0.0, 300.0, "0.00", "300.00"},
        {"Trigger Value", 2, "", -1.0, 1.0, "-1.00", "1.00"},
        {"Trigger Direction", 2, "", 0.0, 1.0, "Up", "Down"},
    };
    const COscilloscope scope;
    const IConstParamInfos& infos = static_cast<const IFilter&>(scope).GetInputParamInfos();
    ASSERT_EQ(infos.GetCount(), static_cast<int>(expected.size()));
    for (int i = 0; i < infos.GetCount(); ++i) {
        const IConstParamInfo& info = infos.Get(i);
        const CExpectedParam& param = expected[static_cast<std::size_t>(i)];
        EXPECT_STREQ(info.GetName(), param.name);
        EXPECT_EQ(static_cast<int>(info.GetType()), param.type) << param.name;
        EXPECT_STREQ(info.GetUnit(), param.unit) << param.name;
        EXPECT_EQ(info.GetMin(), param.min) << param.name;
        EXPECT_EQ(info.GetMax(), param.max) << param.name;
        EXPECT_EQ(info.GetDefault(), 0.0) << param.name;
        EXPECT_EQ(TextOf(info, param.min), param.textOfMin) << param.name;
        EXPECT_EQ(TextOf(info, param.max), param.textOfMax) << param.name;
    }
    EXPECT_EQ(TextOf(infos.Get(0), 1.0), "Loop");
}

void ExpectAxis(const IConstParamInfo& axis, const char* name, const char* unit, double min,
                double max) {
    EXPECT_STREQ(axis.GetName(), name);
    EXPECT_STREQ(axis.GetUnit(), unit) << name;
    EXPECT_EQ(static_cast<int>(axis.GetType()), 2) << name;
    EXPECT_EQ(axis.GetMin(), min) << name;
    EXPECT_EQ(axis.GetMax(), max) << name;
    EXPECT_EQ(axis.GetDefault(), 0.0) << name;
}

TEST(OscilloscopeInfosTest, DeclaresItsTwoCurves) {
    const COscilloscope scope;
    const IConstCurveInfos& infos = static_cast<const IFilter&>(scope).GetOutputCurveInfos();
    ASSERT_EQ(infos.GetCount(), 2);
    EXPECT_STREQ(infos.Get(0).GetName(), "Waveform");
    ExpectAxis(infos.Get(0).GetXInfo(), "Time", "s", -1.0, 0.0);
    ExpectAxis(infos.Get(0).GetYInfo(), "Value", "", -1.0, 1.0);
    EXPECT_STREQ(infos.Get(1).GetName(), "Histogram");
    ExpectAxis(infos.Get(1).GetXInfo(), "Values", "", -1.0, 1.0);
    ExpectAxis(infos.Get(1).GetYInfo(), "Normalized", "", 0.0, 1.0);
}

TEST(OscilloscopeInfosTest, DeclaresOneInputAndNothingElse) {
    const COscilloscope scope;
    const IFilter& filter = scope;
    const IProcessInfo& info = filter.GetIOConfigurations();
    ASSERT_EQ(info.GetInputInfos().GetCount(), 1);
    EXPECT_STREQ(info.GetInputInfos().Get(0).GetName(), "In");
    EXPECT_EQ(info.GetOutputInfos().GetCount(), 0);
    EXPECT_EQ(info.GetConfigurations().GetCount(), 0);
    EXPECT_EQ(info.GetDefaultConfiguration(), -1);
    EXPECT_EQ(filter.GetInputStringInfos().GetCount(), 0);
    EXPECT_EQ(filter.GetInputCurveInfos().GetCount(), 0);
    EXPECT_EQ(filter.GetInputSurfaceInfos().GetCount(), 0);
    EXPECT_EQ(filter.GetInputPropertyInfos().GetCount(), 0);
    EXPECT_EQ(filter.GetOutputParamInfos().GetCount(), 0);
    EXPECT_EQ(filter.GetPrivateOutputParamInfos().GetCount(), 0);
    EXPECT_EQ(filter.GetOutputStringInfos().GetCount(), 0);
    EXPECT_EQ(filter.GetOutputSurfaceInfos().GetCount(), 0);
    EXPECT_EQ(filter.GetOutputPropertyInfos().GetCount(), 0);
}

TEST(OscilloscopeInfosTest, NamesTheProduct) {
    const COscilloscope scope;
    const IConstFilterProductInfo& info = static_cast<const IFilter&>(scope).GetProductInfo();
    EXPECT_STREQ(info.GetVendor(), "Halvane");
    EXPECT_STREQ(info.GetName(), "Oscilloscope");
    EXPECT_STREQ(info.GetVersion(), "2.0");
    EXPECT_STREQ(info.GetDescription(), "Audio Oscilloscope");
    EXPECT_EQ(info.GetCategory(), 7);
    EXPECT_STREQ(info.GetEffectName(), "Oscilloscope");
}

TEST(OscilloscopeInfosTest, SharesTheTablesBetweenInstances) {
    const COscilloscope one;
    const COscilloscope two;
    const IFilter& first = one;
    const IFilter& second = two;
    EXPECT_EQ(&first.GetInputParamInfos(), &second.GetInputParamInfos());
    EXPECT_EQ(&first.GetOutputCurveInfos(), &second.GetOutputCurveInfos());
    EXPECT_EQ(&first.GetIOConfigurations(), &second.GetIOConfigurations());
    EXPECT_EQ(&first.GetProductInfo(), &second.GetProductInfo());
}

} // namespace
} // namespace PluginsFilters

#include "audio/dsp/IOConfiguration.h"

#include <gtest/gtest.h>

namespace Vorin::Audio::DSP {
namespace {

using CInputs = CoreUtilities::TDynamicCollection<CInputInfo, IInputInfo>;
using COutputs = CoreUtilities::TDynamicCollection<COutputInfo, IOutputInfo>;

TEST(IOInfoTest, HasDefaultNames) {
    EXPECT_STREQ(CInputInfo().GetName(), "In");
    EXPECT_STREQ(COutputInfo().GetName(), "Out");
    const CInputInfo info("Left", "V", "the left one");
    EXPECT_STREQ(info.GetName(), "Left");
    EXPECT_STREQ(info.GetUnit(), "V");
    EXPECT_STREQ(info.GetComment(), "the left one");
}

TEST(IOInfoTest, SaysWhichChannelsABusHas) {
    const CBusInfo bus("Main", "", 2, 4);
    EXPECT_STREQ(bus.GetName(), "Main");
    EXPECT_EQ(bus.GetFirstChannel(), 2);
    EXPECT_EQ(bus.GetChannelCount(), 4);
}

TEST(IOConfigurationTest, CallsChannelsWithoutAnInfoInOnBothSides) {
    const CIOConfiguration configuration(2, 1);
    ASSERT_EQ(configuration.GetInputInfos().GetCount(), 2);
    ASSERT_EQ(configuration.GetOutputInfos().GetCount(), 1);
    EXPECT_STREQ(configuration.GetInputInfos().Get(1).GetName(), "In");
    EXPECT_STREQ(configuration.GetOutputInfos().Get(0).GetName(), "In");
    EXPECT_EQ(configuration.GetInputBuses().GetCount(), 0);
    EXPECT_EQ(configuration.GetOutputBuses().GetCount(), 0);
}

TEST(IOConfigurationTest, CopiesTheInfosAsFarAsTheyReach) {
    CInputs inputs;
    inputs.Add(CInputInfo("Left", "V", "words"));
    COutputs outputs;
    outputs.Add(COutputInfo("Wet"));
    outputs.Add(COutputInfo("Spare"));
    const CIOConfiguration configuration(2, 1, &inputs, &outputs);
    EXPECT_STREQ(configuration.GetInputInfos().Get(0).GetName(), "Left");
    EXPECT_STREQ(configuration.GetInputInfos().Get(0).GetUnit(), "V");
    EXPECT_STREQ(configuration.GetInputInfos().Get(0).GetComment(), "words");
    EXPECT_STREQ(configuration.GetInputInfos().Get(1).GetName(), "In");
    ASSERT_EQ(configuration.GetOutputInfos().GetCount(), 1);
    EXPECT_STREQ(configuration.GetOutputInfos().Get(0).GetName(), "Wet");
}

TEST(ProcessInfoTest, IsItsOwnDefault) {
    const CProcessInfo info(2, 0);
    EXPECT_EQ(info.GetDefaultConfiguration(), -1);
    EXPECT_EQ(info.GetConfigurations().GetCount(), 0);
    EXPECT_EQ(&SelectConfiguration(info, -1), static_cast<const IIOConfiguration*>(&info));
}

TEST(ProcessInfoTest, SelectsAVariationByIndexAndTheDefaultBeyondTheList) {
    CProcessInfo info(2, 2);
    info.AddConfiguration(CIOConfiguration(1, 1));
    info.AddConfiguration(CIOConfiguration(4, 3));
    ASSERT_EQ(info.GetConfigurations().GetCount(), 2);
    EXPECT_EQ(SelectConfiguration(info, 0).GetInputInfos().GetCount(), 1);
    EXPECT_EQ(SelectConfiguration(info, 1).GetInputInfos().GetCount(), 4);
    EXPECT_EQ(SelectConfiguration(info, 1).GetOutputInfos().GetCount(), 3);
    EXPECT_EQ(SelectConfiguration(info, 2).GetInputInfos().GetCount(), 2);
    EXPECT_EQ(SelectConfiguration(info, -1).GetInputInfos().GetCount(), 2);
    EXPECT_EQ(SelectConfiguration(info, -5).GetInputInfos().GetCount(), 2);
}

} // namespace
} // namespace Vorin::Audio::DSP

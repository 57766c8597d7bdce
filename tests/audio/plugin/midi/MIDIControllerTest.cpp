#include "audio/plugin/midi/MIDIController.h"

#include "audio/plugin/midi/MIDITestKit.h"

#include <gtest/gtest.h>

namespace Vorin::Audio::Plugin {
namespace {

using namespace Testing;
using Serialization::CMemDataObject;

constexpr CMIDICCSettingsKeys kInputKeys{"MIDIInputDefault", "MIDIInputSettings", "setting"};
constexpr CMIDICCSettingsKeys kOutputKeys{"MIDIOutputDefault", "MIDIOutputSettings", "setting"};

class MIDIController : public ::testing::Test {
protected:
    CInfos inputInfos = MakeInfos(3);
    CInfos outputInfos = MakeInfos(2);
    CInputMIDICCSettings globalInputs{inputInfos};
    COutputMIDICCSettings globalOutputs{outputInfos};
    CMIDIController controller{inputInfos, globalInputs, outputInfos, globalOutputs};
    MIDI::CMIDIEvent event;
    CMIDICCValues message;
    CReceiver receiver;
};

TEST_F(MIDIController, HoldsOneSettingPerParameterAndFollowsInBothDirections) {
    IMIDIController& face = controller;
    EXPECT_EQ(face.GetInputSettings().GetCount(), 3);
    EXPECT_EQ(face.GetOutputSettings().GetCount(), 2);
    EXPECT_TRUE(face.GetInputDefaultFlag().GetValue());
    EXPECT_TRUE(face.GetOutputDefaultFlag().GetValue());
    face.GetOutputDefaultFlag().SetValue(false);
    ChangeAll(globalInputs.Get(2));
    ChangeAll(globalOutputs.Get(1));
    EXPECT_EQ(FieldsOf(face.GetInputSettings().Get(2)), FieldsOf(globalInputs.Get(2)));
    EXPECT_NE(FieldsOf(face.GetOutputSettings().Get(1)), FieldsOf(globalOutputs.Get(1)));
}

TEST_F(MIDIController, ALearnedControllerDrivesItsParameter) {
    controller.GetInputDefaultFlag().SetValue(false);
    CInputMIDICCSetting& setting = controller.GetInputSettings().Get(1);
    setting.SetMIDIEnabled(true);
    controller.GetLearner().SetTarget(&setting);
    controller.GetLearner().SetEnabled(true);
    SetBytes(event, {0xB9, 33, 5});
    ASSERT_TRUE(controller.ApplyMIDI(event, message, receiver));
    EXPECT_TRUE(receiver.Take().empty());
    controller.GetLastMessage().Set(message, true);
    controller.GetLearner().SetEnabled(false);
    SetBytes(event, {0xB9, 33, 127});
    ASSERT_TRUE(controller.ApplyMIDI(event, message, receiver));
    EXPECT_EQ(receiver.Take(), (std::vector<CReceiver::CValue>{{1, 100.0}}));
}

TEST_F(MIDIController, SendsTheOutputsAgainAfterAReset) {
    controller.GetOutputSettings().Get(1).SetMIDIEnabled(true);
    EXPECT_TRUE(controller.MakeOutputCC(1, 100.0, event));
    EXPECT_EQ(BytesOf(event), (std::vector<int>{0xB0, 0, 127}));
    EXPECT_FALSE(controller.MakeOutputCC(1, 100.0, event));
    controller.ResetOutputCC();
    EXPECT_TRUE(controller.MakeOutputCC(1, 100.0, event));
}

TEST_F(MIDIController, ItsStateComesBack) {
    controller.GetInputDefaultFlag().SetValue(false);
    ChangeAll(controller.GetInputSettings().Get(0));
    CMemDataObject document;
    ASSERT_TRUE(controller.WriteInputSettings(document, kInputKeys));
    ASSERT_TRUE(controller.WriteOutputSettings(document, kOutputKeys));
    EXPECT_EQ(document.GetCount(), 3);
    CMIDIController other(inputInfos, globalInputs, outputInfos, globalOutputs);
    other.GetOutputDefaultFlag().SetValue(false);
    EXPECT_TRUE(other.ReadInputSettings(document, kInputKeys));
    EXPECT_TRUE(other.ReadOutputSettings(document, kOutputKeys));
    EXPECT_FALSE(other.GetInputDefaultFlag().GetValue());
    EXPECT_TRUE(other.GetOutputDefaultFlag().GetValue());
    EXPECT_EQ(FieldsOf(other.GetInputSettings().Get(0)),
              FieldsOf(controller.GetInputSettings().Get(0)));
}

TEST_F(MIDIController, TwoInstancesFollowTheSameGlobalSettings) {
    CMIDIController other(inputInfos, globalInputs, outputInfos, globalOutputs);
    globalInputs.Get(0).SetNumber(12);
    EXPECT_EQ(controller.GetInputSettings().Get(0).GetNumber(), 12);
    EXPECT_EQ(other.GetInputSettings().Get(0).GetNumber(), 12);
}

} // namespace
} // namespace Vorin::Audio::Plugin

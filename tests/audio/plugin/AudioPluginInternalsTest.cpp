#include "audio/plugin/AudioPluginInternals.h"

#include "audio/midi/MIDIEvent.h"
#include "audio/plugin/TestPaths.h"
#include "files/TemporaryFolder.h"
#include "filters/OndaraFilter.h"
#include "serialization/MemDataObject.h"
#include "serialization/XmlDataObject.h"

#include <gtest/gtest.h>

#include <atomic>
#include <fstream>
#include <limits>
#include <random>
#include <string>
#include <thread>
#include <utility>

namespace Vorin::Audio::Plugin {
namespace {

using Serialization::CMemDataObject;
using Serialization::CXmlDataObject;

enum EParam { kBypass, kStereoMode, kViewMode, kSync, kDelay, kTriggerValue, kTriggerDirection };

class AudioPluginInternalsTest : public ::testing::Test {
protected:
    AudioPluginInternalsTest() { internals.Connect(inputs, outputs); }
    ~AudioPluginInternalsTest() override { internals.Disconnect(); }

    static CAudioPluginConfig MakeConfig(bool storeState = true) {
        return {.filter = PluginsFilters::CreateOndaraFilter(),
                .gui = nullptr,
                .productInfo = nullptr,
                .storeState = storeState};
    }

    std::string Save() const {
        CXmlDataObject document("Preset", Serialization::kXmlAttributes);
        EXPECT_TRUE(internals.Serialize(document));
        Containers::CCharString text;
        EXPECT_TRUE(document.SaveString(text));
        return text.Get();
    }

    bool Restore(const std::string& text) {
        CXmlDataObject document("Preset", Serialization::kXmlAttributes);
        return document.Parse(text.data(), static_cast<int>(text.size())) &&
               internals.DeSerialize(document);
    }

    static std::string Preset(const std::string& attributes, const std::string& content) {
        return "<Preset " + attributes + ">" + content + "</Preset>";
    }

    /// A document that is refused leaves everything as it was, to the byte.
    void ExpectRefused(const std::string& text) {
        SCOPED_TRACE(text);
        inputs.Get(kDelay).SetValue(75.0);
        const std::string before = Save();
        EXPECT_FALSE(Restore(text));
        EXPECT_EQ(Save(), before);
        EXPECT_EQ(internals.GetChangedSincePresetLoaded().GetValue(), 1.0);
    }

    std::string GetName() { return internals.GetPresetsManager().GetCurrentPresetName().Get(); }

    TestFiles::CTemporaryFolder folder;
    const std::string shipped = folder.Path("shipped");
    const std::string user = folder.Path("user");
    TAudioPluginConfig<CTestPaths> settings{CPackageInfo(shipped.c_str(), user.c_str())};
    CAudioPluginInternals internals{MakeConfig(), settings};
    CHostParams inputs{internals.GetInputInfos()};
    CHostParams outputs{internals.GetFilter().GetOutputParamInfos()};
};

TEST_F(AudioPluginInternalsTest, AFreshOneHasTheDefaults) {
    EXPECT_EQ(GetName(), "Default Settings");
    EXPECT_EQ(internals.GetPresetsManager().GetPresetIndex(), -1);
    for (int i = 0; i < inputs.GetCount(); ++i) {
        EXPECT_EQ(inputs.Get(i).GetValue(), inputs.Get(i).GetInfo().GetDefault());
    }
    EXPECT_EQ(internals.GetOutputDataSync().GetRefreshRate(), 50.0);
}

TEST_F(AudioPluginInternalsTest, WritesTheStateAsAttributes) {
    inputs.Get(kDelay).SetValue(12.5);
    EXPECT_EQ(Save(), "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n"
                      "<Preset version=\"3\" progName=\"Default Settings\" MIDIInputDefault=\"1\" "
                      "MIDIOutputDefault=\"1\">\n"
                      "    <inputParams count=\"7\" p0=\"0\" p1=\"0\" p2=\"0\" p3=\"0\" "
                      "p4=\"12.5\" p5=\"0\" p6=\"0\"/>\n"
                      "    <model/>\n"
                      "</Preset>\n");
}

TEST_F(AudioPluginInternalsTest, ReadsBackWhatItWrote) {
    std::mt19937 random(17);
    for (int round = 0; round < 50; ++round) {
        for (int i = 0; i < inputs.GetCount(); ++i) {
            const auto& info = inputs.Get(i).GetInfo();
            std::uniform_real_distribution<double> value(info.GetMin(), info.GetMax());
            inputs.Get(i).SetValue(value(random));
        }
        const std::string saved = Save();
        for (int i = 0; i < inputs.GetCount(); ++i) {
            inputs.Get(i).SetValue(0.0);
        }
        ASSERT_TRUE(Restore(saved));
        EXPECT_EQ(Save(), saved);
    }
}

TEST_F(AudioPluginInternalsTest, APresetWithoutANameIsCalledDefault) {
    ASSERT_TRUE(Restore(Preset("version=\"3\"", "")));
    EXPECT_EQ(GetName(), "Default");
}

TEST_F(AudioPluginInternalsTest, APresetWithoutParametersHasTheirDefaults) {
    inputs.Get(kDelay).SetValue(100.0);
    ASSERT_TRUE(Restore(Preset("version=\"3\" progName=\"Bare\"", "")));
    EXPECT_EQ(inputs.Get(kDelay).GetValue(), 0.0);
    EXPECT_EQ(GetName(), "Bare");
}

TEST_F(AudioPluginInternalsTest, AMissingValueKeepsTheCurrentOne) {
    inputs.Get(kDelay).SetValue(100.0);
    ASSERT_TRUE(Restore(Preset("version=\"3\"", "<inputParams count=\"7\" p2=\"1\"/>")));
    EXPECT_EQ(inputs.Get(kDelay).GetValue(), 100.0);
    EXPECT_EQ(inputs.Get(kViewMode).GetValue(), 1.0);
}

TEST_F(AudioPluginInternalsTest, IgnoresKeysThatItDoesNotKnow) {
    ASSERT_TRUE(Restore(Preset("version=\"4\" colour=\"red\"",
                               "<inputParams count=\"8\" p4=\"5\" p7=\"1\"/><more a=\"1\"/>")));
    EXPECT_EQ(inputs.Get(kDelay).GetValue(), 5.0);
}

TEST_F(AudioPluginInternalsTest, KeepsValuesOfFilesWithinTheirRanges) {
    ASSERT_TRUE(Restore(Preset("version=\"3\"", "<inputParams p4=\"1e300\" p5=\"-7\"/>")));
    EXPECT_EQ(inputs.Get(kDelay).GetValue(), 300.0);
    EXPECT_EQ(inputs.Get(kTriggerValue).GetValue(), -1.0);
}

TEST_F(AudioPluginInternalsTest, RefusesWhatNoPresetCanHave) {
    ExpectRefused(Preset("progName=\"x\"", "<inputParams count=\"7\" p0=\"1\" p4=\"nan\"/>"));
    ExpectRefused(Preset("progName=\"x\"", "<inputParams count=\"7\" p4=\"inf\"/>"));
    ExpectRefused(Preset("progName=\"x\"", "<inputParams count=\"-1\" p4=\"2\"/>"));
    ExpectRefused(Preset("progName=\"x\"", "<inputParams count=\"9\" p4=\"2\"/>"));
    ExpectRefused(Preset("progName=\"x\"", "<inputParams count=\"2000000000\" p4=\"2\"/>"));
    ExpectRefused(Preset("progName=\"x\" MIDIInputDefault=\"0\"",
                         "<MIDIInputSettings settingCount=\"70000\"/>"));
    ExpectRefused("<Other/>");
    ExpectRefused("");
}

TEST_F(AudioPluginInternalsTest, LoadsAnOldVersionToo) {
    ASSERT_TRUE(Restore(Preset("version=\"2\"", "<inputParams count=\"7\" p4=\"3\"/>")));
    EXPECT_EQ(inputs.Get(kDelay).GetValue(), 3.0);
}

TEST_F(AudioPluginInternalsTest, KeepsMIDISettingsOnlyWhenTheyDoNotFollowTheGlobalOnes) {
    CMIDIController& midi = internals.GetMIDIController();
    EXPECT_EQ(Save().find("MIDIInputSettings"), std::string::npos);
    midi.GetInputDefaultFlag().SetValue(false);
    midi.GetInputSettings().Get(kDelay).SetNumber(74);
    midi.GetInputSettings().Get(kDelay).SetMIDIEnabled(true);
    const std::string saved = Save();
    EXPECT_NE(saved.find("MIDIInputSettings"), std::string::npos);
    midi.GetInputDefaultFlag().SetValue(true);
    EXPECT_EQ(midi.GetInputSettings().Get(kDelay).GetNumber(), 0);
    ASSERT_TRUE(Restore(saved));
    EXPECT_FALSE(midi.GetInputDefaultFlag().GetValue());
    EXPECT_EQ(midi.GetInputSettings().Get(kDelay).GetNumber(), 74);
    EXPECT_EQ(Save(), saved);
}

TEST_F(AudioPluginInternalsTest, ReadingADefaultFlagReturnsTheSettingsToTheGlobalOnes) {
    const std::string following = Save();
    CMIDIController& midi = internals.GetMIDIController();
    settings.GetSettings().GetInputCCSettings().Get(kDelay).SetNumber(20);
    midi.GetInputDefaultFlag().SetValue(false);
    midi.GetInputSettings().Get(kDelay).SetNumber(74);
    ASSERT_TRUE(Restore(following));
    EXPECT_TRUE(midi.GetInputDefaultFlag().GetValue());
    EXPECT_EQ(midi.GetInputSettings().Get(kDelay).GetNumber(), 20);
}

TEST_F(AudioPluginInternalsTest, ShowsWhetherAnythingChangedSinceTheLastLoad) {
    CHostParam& changed = internals.GetChangedSincePresetLoaded();
    ASSERT_TRUE(Restore(Save()));
    EXPECT_EQ(changed.GetValue(), 0.0);
    inputs.Get(kDelay).SetValue(4.0);
    EXPECT_EQ(changed.GetValue(), 1.0);
    ASSERT_TRUE(Restore(Preset("version=\"3\"", "<inputParams p4=\"9\"/>")));
    EXPECT_EQ(changed.GetValue(), 0.0);
}

TEST_F(AudioPluginInternalsTest, WithoutAStateItWritesNothingAndSucceeds) {
    CAudioPluginInternals stateless(MakeConfig(false), settings);
    CMemDataObject written;
    EXPECT_TRUE(stateless.Serialize(written));
    EXPECT_EQ(written.GetCount(), 0);
    const std::string path = folder.Path("empty.preset");
    ASSERT_TRUE(stateless.GetPresetsManager().SavePreset(path.c_str()));
    std::ifstream file(path);
    const std::string text{std::istreambuf_iterator<char>(file), {}};
    EXPECT_NE(text.find("<Preset/>"), std::string::npos) << text;
}

TEST_F(AudioPluginInternalsTest, SecondInstancesReadTheSameSettingsAndOutliveTheFirst) {
    auto second = std::make_unique<CAudioPluginInternals>(MakeConfig(), settings);
    ASSERT_TRUE(settings.GetSettings().SetOutputRefreshRate(25.0));
    second.reset();
    EXPECT_EQ(settings.GetSettings().GetOutputRefreshRate(), 25.0);
    CAudioPluginInternals third(MakeConfig(), settings);
    EXPECT_EQ(third.GetOutputDataSync().GetRefreshRate(), 25.0);
}

TEST_F(AudioPluginInternalsTest, SavesAndLoadsPresetFiles) {
    inputs.Get(kDelay).SetValue(33.0);
    const std::string path = user + "/Presets/Mine.preset";
    ASSERT_TRUE(internals.GetPresetsManager().SavePreset(path.c_str()));
    EXPECT_EQ(GetName(), "Mine");
    inputs.Get(kDelay).SetValue(0.0);
    ASSERT_TRUE(internals.GetPresetsManager().LoadNextPreset());
    EXPECT_EQ(inputs.Get(kDelay).GetValue(), 33.0);
}

TEST_F(AudioPluginInternalsTest, LoadsTheDefaultPresetOrEverythingsDefaults) {
    inputs.Get(kDelay).SetValue(33.0);
    ASSERT_TRUE(internals.GetPresetsManager().SaveAsDefaultPreset());
    inputs.Get(kDelay).SetValue(44.0);
    internals.GetPresetsManager().LoadDefaultPreset();
    EXPECT_EQ(inputs.Get(kDelay).GetValue(), 33.0);
    ASSERT_TRUE(internals.GetPresetsManager().DeleteDefaultPreset());
    internals.GetPresetsManager().LoadDefaultPreset();
    EXPECT_EQ(inputs.Get(kDelay).GetValue(), 0.0);
    EXPECT_EQ(GetName(), "Default Settings");
}

class CController : public MIDI::CMIDIEvent {
public:
    CController(int channel, int number, int value) {
        SetType(MIDI::kMIDIController);
        SetChannel(channel);
        SetData1(number);
        SetData2(value);
    }
};

TEST_F(AudioPluginInternalsTest, ControllersDriveParametersAsGestures) {
    CMIDIController& midi = internals.GetMIDIController();
    midi.GetInputSettings().Get(kDelay).SetNumber(7);
    midi.GetInputSettings().Get(kDelay).SetMIDIEnabled(true);
    CMIDICCValues message;
    EXPECT_TRUE(internals.ApplyMIDI(CController(3, 7, 127), message));
    EXPECT_EQ(message, (CMIDICCValues{4, 7, 127}));
    EXPECT_EQ(inputs.Get(kDelay).GetValue(), 300.0);
    EXPECT_FALSE(inputs.Get(kDelay).IsCaptured());
    inputs.Get(kDelay).Capture();
    EXPECT_TRUE(internals.ApplyMIDI(CController(3, 7, 0), message));
    EXPECT_EQ(inputs.Get(kDelay).GetValue(), 0.0);
    EXPECT_TRUE(inputs.Get(kDelay).IsCaptured()); // a gesture of the user goes on
}

/// Counts what is brought to an idle filter.
class CRefreshes {
public:
    int Take() { return std::exchange(count, 0); }

    Core::TCommand<CRefreshes> command{this, &CRefreshes::OnRefresh};

private:
    void OnRefresh() { ++count; }

    int count = 0;
};

TEST_F(AudioPluginInternalsTest, ARestoredStateIsBroughtToAnIdleFilter) {
    CRefreshes refreshes;
    internals.Connect(inputs, outputs, &refreshes.command);
    ASSERT_TRUE(Restore(Preset("version=\"3\"", "<inputParams p4=\"5\"/>")));
    EXPECT_EQ(refreshes.Take(), 1);
    EXPECT_FALSE(Restore(Preset("version=\"3\"", "<inputParams p4=\"nan\"/>")));
    EXPECT_EQ(refreshes.Take(), 0);
    internals.GetPresetsManager().LoadDefaultPreset();
    EXPECT_EQ(refreshes.Take(), 1);
    internals.Disconnect();
    ASSERT_TRUE(Restore(Preset("version=\"3\"", "")));
    EXPECT_EQ(refreshes.Take(), 0);
}

TEST_F(AudioPluginInternalsTest, TakesNoMIDIWithoutInputs) {
    internals.Disconnect();
    CMIDICCValues message;
    EXPECT_FALSE(internals.ApplyMIDI(CController(0, 7, 1), message));
}

// Two states alternate on one thread, while the audio thread's side never sees a mixture of them.
TEST_F(AudioPluginInternalsTest, AStateReachesTheFilterAsAWhole) {
    constexpr int kRounds = 400;
    const std::string low =
        Preset("version=\"3\"", "<inputParams count=\"7\" p4=\"10\" p5=\"-0.5\" p6=\"0\"/>");
    const std::string high =
        Preset("version=\"3\"", "<inputParams count=\"7\" p4=\"200\" p5=\"0.5\" p6=\"1\"/>");
    ASSERT_TRUE(internals.Configure({.blockSize = 64}, 48000.0));
    ASSERT_TRUE(Restore(low));
    std::atomic<bool> isDone{false};
    std::thread loader([&] {
        for (int i = 0; i < kRounds; ++i) {
            EXPECT_TRUE(Restore(i % 2 == 0 ? high : low));
        }
        isDone = true;
    });
    while (!isDone) {
        if (const DSP::IConstInputRamp* ramp = internals.PrepareBlock()) {
            // The parameters of the filter, in front of which stands the bypass.
            const auto& end = ramp->GetAtEnd().GetVariation(0).GetInputParams();
            const double delay = end.GetValue(kDelay - 1);
            EXPECT_EQ(end.GetValue(kTriggerValue - 1), delay == 10.0 ? -0.5 : 0.5);
            EXPECT_EQ(end.GetValue(kTriggerDirection - 1), delay == 10.0 ? 0.0 : 1.0);
            internals.FinishRamp();
        }
    }
    loader.join();
}

} // namespace
} // namespace Vorin::Audio::Plugin

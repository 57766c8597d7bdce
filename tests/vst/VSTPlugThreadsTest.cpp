// What the audio thread sees of what other threads do.

#include "vst/VSTTestKit.h"

#include <atomic>
#include <functional>
#include <thread>

namespace VorinExt::VSTPlugin::Testing {
namespace {

/// A filter that notes whether its values ever differ from each other, and whose Init can be held.
class CWatchingFilter : public DSP::CBaseCoreDSPFilter {
public:
    static constexpr int kParams = 16;

    struct CRecord {
        std::atomic<int> mixtures{0};
        std::atomic<int> changes{0};
        std::atomic<int> phase{0}; ///< 1: Init waits; 2: it does; 3: it may go on
    };

    explicit CWatchingFilter(CRecord& watchRecord) : record(watchRecord) {
        for (int i = 0; i < kParams; ++i) {
            infos.Add(MakeParam("Value"));
        }
        SetInputParamInfos(infos);
    }

    DSP::IFilter* Clone() const override { return new CWatchingFilter(record); }
    const DSP::IConstFilterProductInfo& GetProductInfo() const override {
        static const DSP::CFilterProductInfo info("", "", "", "", "", 0, "");
        return info;
    }
    const DSP::IProcessInfo& GetIOConfigurations() const override {
        static const DSP::CProcessInfo info(2, 0);
        return info;
    }

protected:
    void OnInit() override {
        int waiting = 1;
        if (record.phase.compare_exchange_strong(waiting, 2)) {
            record.phase.notify_all();
            record.phase.wait(2);
        }
    }
    void OnInputParams(const DSP::IConstParamsValues& values, int) override {
        ++record.changes;
        for (int i = 1; i < values.GetCount(); ++i) {
            const bool isMixture =
                values.GetValue(i) < values.GetValue(0) || values.GetValue(i) > values.GetValue(0);
            record.mixtures += isMixture ? 1 : 0;
        }
    }
    void OnProcess(DSP::IAudioStreams&, DSP::IAudioStreams&, int,
                   const DSP::IConstInputRamp* ramp) override {
        if (ramp) {
            SetInputParams(ramp->GetAtEnd());
        }
    }

private:
    CRecord& record;
    CoreUtilities::TDynamicCollection<CParamInfo, IConstParamInfo> infos;
};

class VSTPlugThreadsTest : public testing::Test {
protected:
    VSTPlugThreadsTest() {
        auto filter = std::make_unique<CWatchingFilter>(record);
        filter->Init({.applyDefaults = true}, 44100.0);
        plug = std::make_unique<CVSTPlug>(
            &CFakeHost::Callback,
            Plugin::CAudioPluginConfig{.filter = std::move(filter), .gui = nullptr}, settings);
        plug->resume();
    }

    static std::string StateOf(int value) {
        std::string text = "<Preset><inputParams count=\"17\"";
        for (int i = 1; i <= CWatchingFilter::kParams; ++i) {
            text += " p" + std::to_string(i) + "=\"" + std::to_string(value) + "\"";
        }
        return text + "/></Preset>";
    }

    VstInt32 SetChunk(std::string text) {
        return plug->setChunk(text.data(), static_cast<VstInt32>(text.size()), false);
    }

    TestFiles::CTemporaryFolder folder;
    CTestSettings settings{folder};
    CFakeHost host;
    CWatchingFilter::CRecord record;
    std::unique_ptr<CVSTPlug> plug;
};

TEST_F(VSTPlugThreadsTest, AStateReachesTheFilterAsAWhole) {
    std::atomic<bool> isOver{false};
    std::thread audio([&] {
        std::vector<float> samples(32, 0.5F);
        float* channels[] = {samples.data(), samples.data()};
        while (!isOver) {
            plug->processReplacing(channels, channels, 32);
        }
    });
    // On a machine with much to do the audio thread comes in late.
    for (int round = 0; round < 3000 || (record.changes <= 10 && round < 1000000); ++round) {
        ASSERT_EQ(SetChunk(StateOf(round % 2)), 1);
    }
    isOver = true;
    audio.join();
    plug->suspend();
    EXPECT_EQ(record.mixtures, 0);
    EXPECT_GT(record.changes, 10);
}

TEST_F(VSTPlugThreadsTest, AudioPassesToTheBitWhileThePlugIsSetUpAnew) {
    record.phase = 1;
    std::thread other([&] { plug->resume(); });
    record.phase.wait(1);
    ASSERT_EQ(record.phase, 2);
    std::vector<float> left{1, 2, 3};
    std::vector<float> right{4, 5, 6};
    float* inputs[] = {left.data(), right.data()};
    float* crossed[] = {right.data(), left.data()};
    plug->processReplacing(inputs, inputs, 3);
    EXPECT_EQ(left, (std::vector<float>{1, 2, 3}));
    EXPECT_EQ(right, (std::vector<float>{4, 5, 6}));
    plug->processReplacing(inputs, crossed, 3);
    EXPECT_EQ(left, (std::vector<float>{4, 5, 6}));
    EXPECT_EQ(right, (std::vector<float>{1, 2, 3}));
    std::vector<float> sum(3, 10.0F);
    float* outputs[] = {sum.data(), nullptr};
    plug->process(inputs, outputs, 3);
    EXPECT_EQ(sum, (std::vector<float>{14, 15, 16}));
    plug->processReplacing(nullptr, nullptr, 3);
    record.phase = 3;
    record.phase.notify_all();
    other.join();
}

/// Listens to a setting, and holds the thread that tells it in each of the first two calls.
class CHoldingListener {
public:
    explicit CHoldingListener(Plugin::IMIDICCSetting& heardSetting) : setting(heardSetting) {
        setting.GetChangedEvent().Connect(command);
    }
    CHoldingListener(const CHoldingListener&) = delete;
    CHoldingListener& operator=(const CHoldingListener&) = delete;
    ~CHoldingListener() { setting.GetChangedEvent().Disconnect(command); }

    void WaitForCall(int call) {
        for (int now = calls; now < call; now = calls) {
            calls.wait(now);
        }
    }
    void LetGoOn(int call) {
        released = call;
        released.notify_all();
    }
    int GetCalls() const { return calls; }

private:
    void OnChanged() {
        const int call = ++calls;
        calls.notify_all();
        for (int now = released; call <= 2 && now < call; now = released) {
            released.wait(now);
        }
    }

    Plugin::IMIDICCSetting& setting;
    std::atomic<int> calls{0};
    std::atomic<int> released{0};
    Core::TCommand<CHoldingListener> command{this, &CHoldingListener::OnChanged};
};

TEST_F(VSTPlugThreadsTest, WhatCouldNotBeToldAtTheTimeIsToldWhenTheHostCallsNext) {
    Plugin::IMIDICCSetting& setting = settings.GetSettings().GetInputCCSettings().Get(1);
    const std::function<void()> hostCalls[] = {[&] { plug->suspend(); }, [&] { plug->resume(); },
                                               [&] {
                                                   void* data = nullptr;
                                                   plug->getChunk(&data, false);
                                               }};
    int number = 1;
    for (const auto& callOfTheHost : hostCalls) {
        CHoldingListener listener(setting);
        std::thread other([&, first = number++] { setting.SetNumber(first); });
        listener.WaitForCall(1);
        setting.SetNumber(number++); // the other thread still tells this one
        listener.LetGoOn(1);
        listener.WaitForCall(2);
        setting.SetNumber(number++); // but not this one
        listener.LetGoOn(2);
        other.join();
        EXPECT_EQ(listener.GetCalls(), 2);
        callOfTheHost();
        EXPECT_EQ(listener.GetCalls(), 3);
    }
}

} // namespace
} // namespace VorinExt::VSTPlugin::Testing
